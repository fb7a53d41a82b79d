// Memory that runs out: each step that grows with the text is tried with ever more of it.

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QClipboard>
#include <QComboBox>
#include <QMimeData>
#include <QPushButton>
#include <fstream>

#include "app/dialogs/frmFind.h"
#include "support/Drop.h"
#include "support/EditorFixture.h"
#include "text/TextAreaGuards.h"

using namespace klt;

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool kCanBeLimited = false;
#else
constexpr bool kCanBeLimited = true;
#endif

constexpr size_t kSize = size_t{400} << 10;
constexpr size_t kRungs = 20;
constexpr size_t kRung = size_t{2560} << 10;
constexpr std::string_view kOther = "Version=2\r\nother";

/// So much more address space than the process has now, to the end of the scope.
class MemoryLimit {
public:
    explicit MemoryLimit(size_t more) {
        malloc_trim(0);
        size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        set(pages * static_cast<size_t>(sysconf(_SC_PAGESIZE)) + more);
    }
    ~MemoryLimit() { set(RLIM_INFINITY); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    static void set(rlim_t size) {
        rlimit limit{};
        getrlimit(RLIMIT_AS, &limit);
        limit.rlim_cur = size;
        EXPECT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
    }
};

std::string sample() {
    std::string text = "Version=2\r\n[ADS]\r\n<Gifts>\r\n";
    while (text.size() < kSize) text += "Sea Legs, 5, PAGE(H12), cat(Sea), notes(of the sea)\r\n";
    return text;
}

class MemoryTest : public EditorFixture {
protected:
    using Step = std::function<void()>;

    MemoryTest() {
        if (!kCanBeLimited) return;
        // Freed blocks are given back, or a step would live on those of the one before.
        mallopt(M_MMAP_THRESHOLD, 128 << 10);
        set("AutoSyntaxCheck", "False");
        set("Show KLT Checker Window", "0");
        other_ = &open(file("other.klt", kOther));
        QObject::connect(&closer_, &QTimer::timeout, [] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->accept();
        });
        closer_.start(1);
    }

    void set(std::string_view key, std::string_view value) {
        SaveSetting(store, kSettingsApplication, "Options", key, value);
    }
    RichTextBox& box() { return *active().RichTextBox1; }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(&box(), key, modifiers);
    }
    void load() {
        const RaisedFlag loading(active().isLoading);
        box().SetText(text_);
    }
    void loadAndCheck() {
        load();
        editor().colouring.ColourDocument(active());
        box().SetSelStart(box().Length());
    }
    void selectMost() {
        loadAndCheck();
        box().Select(12, box().Length());
    }
    /// What a step changes, or must leave as it was.
    std::string state() {
        std::string all = std::to_string(window().forms().count()) + active().Caption();
        all += box().CanUndo() ? " undo " : " ";
        all += box().CanRedo() ? "redo " : "";
        all += std::to_string(box().ProtectedRuns().size());
        return all.append(box().Text()).append(box().Styles());
    }
    static void limited(size_t more, const Step& step) {
        const MemoryLimit limit(more);
        step();
        letEventsRun();
    }
    /// With too little memory the step is told of and changes nothing, and with enough it is done.
    void climb(const char* name, const Step& prepare, const Step& step,
               const std::function<std::string()>& seen) {
        std::string steps;
        for (size_t rung = 0; rung < kRungs; ++rung) {
            prepare();
            letEventsRun();
            const auto before = seen();
            limited(rung * kRung, step);
            letEventsRun();
            const bool isDone = seen() != before;
            EXPECT_EQ(notice().empty(), isDone) << name << ", rung " << rung << ": " << notice();
            EXPECT_EQ(textOf(*other_), kOther) << name;
            while (!notice().empty()) dismissNotice();
            steps += isDone ? '+' : '-';
            if (rung > 0 || isDone) continue;
            step();
            EXPECT_NE(seen(), before) << name << " can't be done any more";
        }
        EXPECT_TRUE(steps.starts_with('-') && steps.ends_with('+')) << name << ' ' << steps;
    }
    void climb(const char* name, const Step& prepare, const Step& step) {
        climb(name, prepare, step, [this] { return state(); });
    }

private:
    const std::string text_ = sample();
    frmKLTEditor* other_ = nullptr;
    QTimer closer_;
};

TEST_F(MemoryTest, AnOpeningLeavesNoWindow) {
    if (!kCanBeLimited) GTEST_SKIP();
    const auto latin = file("latin.klt", sample() + "\xE4\n"), plain = file("plain.klt", sample());
    const Step close = [&] {
        while (window().forms().count() > 2) window().closeDocument(active());
    };
    climb("open", close, [&] { editor().documents.openFiles({plain}); });
    climb("open Windows-1252", close, [&] { editor().documents.openFiles({latin}); });
    climb("new", close, [&] { press(Qt::Key_N); });
    close();
}

TEST_F(MemoryTest, AnyOtherStepLeavesTheTextAsItWas) {
    if (!kCanBeLimited) GTEST_SKIP();
    open(file("big.klt", sample()));
    const QString wide = QString::fromStdString(sample());
    QMimeData data;
    data.setText(wide);
    const Step fillUp = [&] {
        loadAndCheck();
        // All that its buffers hold without growing.
        box().SetSelText(sample().substr(0, 65536 + 256 - 2));
    };
    const Step deleteAll = [&] {
        load();
        press(Qt::Key_A);
        press(Qt::Key_Delete, Qt::NoModifier);
    };
    const Step deleteAndUndo = [&] {
        load();
        box().Select(0, box().Length());
        box().SetSelText(sample() + "x");
        press(Qt::Key_Z);
    };
    const struct {
        const char* name;
        Step prepare, step;
    } rows[] = {
        {"check", [&] { load(); }, [&] { press(Qt::Key_K); }},
        {"type", fillUp, [&] { type("y"); }},
        {"Enter", fillUp, [&] { press(Qt::Key_Return, Qt::NoModifier); }},
        {"delete", [&] { selectMost(); }, [&] { press(Qt::Key_Delete, Qt::NoModifier); }},
        {"cut", [&] { selectMost(); }, [&] { press(Qt::Key_X); }},
        {"undo", deleteAll, [&] { press(Qt::Key_Z); }},
        {"redo", deleteAndUndo, [&] { press(Qt::Key_Y); }},
        {"drop", [&] { load(); }, [&] { dropOnto(*box().viewport(), data); }},
        {"paste",
         [&] {
             loadAndCheck();
             QApplication::clipboard()->setText(wide);
         },
         [&] { press(Qt::Key_V); }},
        {"paste over", [&] { selectMost(); }, [&] { press(Qt::Key_V); }},
    };
    for (const auto& row : rows) climb(row.name, row.prepare, row.step);

    climb(
        "copy", [&] { QApplication::clipboard()->setText("x"), loadAndCheck(); },
        [&] { press(Qt::Key_A), press(Qt::Key_C); },
        [&] { return QApplication::clipboard()->text().toStdString(); });
}

TEST_F(MemoryTest, ReplaceAllLeavesTheTextAsItWas) {
    if (!kCanBeLimited) GTEST_SKIP();
    open(file("big.klt", sample()));
    editor().openFind(frmFind::Shape::Replace);
    auto* form = window().findChild<frmFind*>("frmFind");
    form->findChild<QComboBox*>("Combo1")->setEditText("sea");
    form->findChild<QComboBox*>("Combo2")->setEditText("ocean");
    auto* button = form->findChild<QPushButton*>("cmdFindReplace(2)");
    const Step prepare = [&] {
        loadAndCheck();
        box().SetSelStart(0);
    };
    climb("replace all", prepare, [&] { QTest::mouseClick(button, Qt::LeftButton); });
    form->close();
}

}  // namespace
