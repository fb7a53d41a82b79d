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

std::string sample(size_t size = size_t{400} << 10) {
    std::string text = "Version=2\r\n[ADS]\r\n<Gifts>\r\n";
    while (text.size() < size) text += "Sea Legs, 5x, PAGE(H12), cat(Sea), notes(of the sea)\r\n";
    return text;
}

class MemoryTest : public EditorFixture {
protected:
    using Step = std::function<void()>;

    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "its address space cannot be limited";
#endif
        // Freed blocks are given back, or a step would live on those of the one before.
        mallopt(M_MMAP_THRESHOLD, 128 << 10);
        set("Options", "AutoSyntaxCheck", "False");
        set("Options", "Show KLT Checker Window", "0");
        other_ = &open(file("other.klt", kOther));
        QObject::connect(&closer_, &QTimer::timeout, [] {
            if (auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                message->accept();
        });
        closer_.start(1);
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
        std::string all = std::to_string(count()) + active().Caption();
        all += box().CanUndo() ? " undo " : " ";
        all += box().CanRedo() ? "redo " : "";
        all += std::to_string(box().ProtectedRuns().size());
        return all.append(box().Text()).append(box().Styles());
    }
    /// With too little memory the step is told of and changes nothing, and with enough it is done.
    void climb(const char* name, const Step& prepare, const Step& step,
               const std::function<std::string()>& seen) {
        std::string steps;
        for (size_t rung = 0; rung < kRungs; ++rung) {
            prepare();
            letEventsRun();
            const auto before = seen();
            {
                const MemoryLimit limit(rung * kRung);
                step();
                letEventsRun();
            }
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
    const auto plain = file("plain.klt", sample()), latin = file("latin.klt", sample() + "\xE4\n"),
               large = file("large.klt", sample(size_t{2} << 20));
    const Step close = [&] {
        while (count() > 1) window().closeDocument(active());
    };
    for (const auto& path : {plain, latin, large})
        climb(path.c_str(), close, [&] { editor().documents.openFiles({path}); });
    climb("new", close, [&] { key(Qt::Key_N, kCtrl); });
    close();
}

TEST_F(MemoryTest, AnyOtherStepLeavesTheTextAsItWas) {
    open(file("big.klt", sample()));
    QMimeData data;
    data.setText(QString::fromStdString(sample()));
    const auto setClipboard = [&](const QString& text) {
        loadAndCheck();
        QApplication::clipboard()->setText(text);
    };
    const Step fillUp = [&] {
        loadAndCheck();
        // All that its buffers hold without growing.
        box().SetSelText(sample().substr(0, 65536 + 256 - 2));
    };
    const Step deleteAll = [&] {
        load();
        key(Qt::Key_A, kCtrl);
        key(Qt::Key_Delete);
    };
    const Step replaceAndUndo = [&] {
        load();
        box().Select(0, box().Length());
        box().SetSelText(sample() + "x");
        key(Qt::Key_Z, kCtrl);
    };
    const struct {
        const char* name;
        Step prepare, step;
    } rows[] = {
        {"check", [&] { load(); }, [&] { key(Qt::Key_K, kCtrl); }},
        {"type", fillUp, [&] { type("y"); }},
        {"Enter", fillUp, [&] { key(Qt::Key_Return); }},
        {"delete", [&] { selectMost(); }, [&] { key(Qt::Key_Delete); }},
        {"cut", [&] { selectMost(); }, [&] { key(Qt::Key_X, kCtrl); }},
        {"undo", deleteAll, [&] { key(Qt::Key_Z, kCtrl); }},
        {"redo", replaceAndUndo, [&] { key(Qt::Key_Y, kCtrl); }},
        {"drop", [&] { load(); }, [&] { dropOnto(*box().viewport(), data); }},
        {"paste", [&] { setClipboard(data.text()); }, [&] { key(Qt::Key_V, kCtrl); }},
        {"paste over", [&] { selectMost(); }, [&] { key(Qt::Key_V, kCtrl); }},
    };
    for (const auto& row : rows) climb(row.name, row.prepare, row.step);
    const Step copyAll = [&] {
        key(Qt::Key_A, kCtrl);
        key(Qt::Key_C, kCtrl);
    };
    climb(
        "copy", [&] { setClipboard("x"); }, copyAll,
        [&] { return QApplication::clipboard()->text().toStdString(); });

    editor().openFind(frmFind::Shape::Replace);
    auto* form = window().findChild<frmFind*>("frmFind");
    form->findChild<QComboBox*>("Combo1")->setEditText("sea");
    form->findChild<QComboBox*>("Combo2")->setEditText("ocean");
    auto* replaceAll = form->findChild<QPushButton*>("cmdFindReplace(2)");
    const Step toStart = [&] {
        loadAndCheck();
        box().SetSelStart(0);
    };
    climb("replace all", toStart, [&] { QTest::mouseClick(replaceAll, Qt::LeftButton); });
    form->close();
}

}  // namespace
