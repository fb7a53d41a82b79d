#include <gmock/gmock.h>

#include <QDialog>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>

#include "app/commands/Commands.h"
#include "app/dialogs/frmKLTChecker.h"
#include "checker/DocumentPass.h"
#include "support/Drop.h"
#include "support/EditorFixture.h"

using namespace klt;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr std::string_view kText =
    "version=2\r\n[ads]\r\n<Gifts>\r\nSea Legs, 5, PAGE(H12)\r\nRope Hand, 5, page(H14\r\nVERSION=2\r\n* end";
constexpr std::string_view kChecked =
    "Version=2\r\n[ADS]\r\n<Gifts>\r\nSea Legs, 5, page(H12)\r\nRope Hand, 5, page(H14\r\nVersion=2\r\n* end";

class ColourDocumentTest : public EditorFixture {
protected:
    void set(std::string_view key, std::string_view value) {
        SaveSetting(store, kSettingsApplication, "Options", key, value);
    }
    void check() { runCommand(editor(), "T6"); }
    RichTextBox& box() { return *active().RichTextBox1; }
    frmKLTChecker* progress() { return window().findChild<frmKLTChecker*>(); }
    QString label(const char* name) { return progress()->findChild<QLabel*>(name)->text(); }
    void pressLock() { QTest::mouseClick(progress()->findChild<QWidget*>("cmdToggleLock"), Qt::LeftButton); }

    /// Calls `work` once a pass has begun to work, between two of its slices.
    void duringPass(std::function<void()> work) {
        QTimer::singleShot(0, &life_, [this, work] {
            window().ActiveForm() && !box().updatesEnabled() && !variables().LoadingDocuments
                ? work()
                : duringPass(work);
        });
    }
    QObject life_;
};

TEST_F(ColourDocumentTest, ADocumentIsCheckedWhenItIsOpenedOrOnCommand) {
    for (const bool onLoad : {true, false}) {
        set("AutoSyntaxCheck", onLoad ? "True" : "False");
        auto& document = open(file("a.klt", kText));
        if (!onLoad) {
            EXPECT_EQ(textOf(document), kText);
            EXPECT_EQ(box().StyleRuns(), "");
            check();
        }
        StyledText expected{std::string(kText)};
        CheckerState state;
        CheckDocument(expected, state);
        EXPECT_EQ(textOf(document), kChecked);
        EXPECT_EQ(box().Styles(), expected.styles());
        EXPECT_THAT(box().ProtectedRuns(), ElementsAre(TextRange{0, 9}, TextRange{75, 84}));
        EXPECT_FALSE(document.Modified());
        EXPECT_EQ(editor().highlighter.state.CurrentSection(), "[ads]");
        EXPECT_EQ(progress(), nullptr);
    }
}

TEST_F(ColourDocumentTest, SelectionAndScrollStayAndNothingCanBeUndone) {
    std::string text(kText);
    for (int n = 0; n < 200; ++n) text += "\r\nSea Legs, 5, PAGE(H12)";
    auto& document = open(file("a.klt", text));
    box().SetSelStart(box().Length());
    QTest::keyClick(&box(), Qt::Key_Return);
    type("<x>");
    box().Select(box().LineIndex(120), 30);
    box().ScrollToLine(110);
    const Position first = box().FirstVisibleLine();
    QSignalSpy changes(&box(), &RichTextBox::Change), moves(&box(), &RichTextBox::SelChange);
    check();
    EXPECT_EQ(box().SelStart(), box().LineIndex(120));
    EXPECT_EQ(box().SelLength(), 30);
    EXPECT_EQ(box().FirstVisibleLine(), first);
    EXPECT_FALSE(box().CanUndo());
    EXPECT_TRUE(document.Modified());
    EXPECT_EQ(changes.count() + moves.count(), 0);
    box().ScrollToLine(0);
    check();
    EXPECT_GT(box().FirstVisibleLine(), 0) << "the caret comes into view";
}

TEST_F(ColourDocumentTest, TheWindowTellsHowFarThePassIs) {
    std::string text = "[SKILLS]\r\n<Sea>";
    for (int n = 0; n < 3'000; ++n) text += "\r\nBoating, DX, default(DX-5), page(H41), cat(Sea)";
    const auto path = file("a.klt", text);
    int steps = 0;
    std::function<void()> look = [&] {
        ++steps;
        EXPECT_EQ(progress()->windowTitle(), "KLT Editor Syntax Checker");
        EXPECT_EQ(progress()->findChild<QProgressBar*>()->maximum(), 3'002);
        if (label("lblCurrSection").isEmpty()) return duringPass(look);
        EXPECT_EQ(label("lblCurrSection"), "[SKILLS]");
        EXPECT_EQ(label("lblCurrSubSection"), "<Sea>");
        const int value = progress()->findChild<QProgressBar*>()->value();
        EXPECT_EQ(label("Label8"), QString::number(std::lround(value * 100.0 / 3'002)) + '%');
        EXPECT_GT(value, 1);
        progress()->close();
        EXPECT_TRUE(progress()->isHidden()) << "the pass goes on";
    };
    duringPass(look);
    open(path);
    EXPECT_GT(steps, 1);
    EXPECT_THAT(box().StyleRuns().toStdString(), HasSubstr("0 8 Sections"));
}

TEST_F(ColourDocumentTest, TheWindowIsShownBySettingAndNotForANewDocument) {
    const struct {
        const char* setting;
        std::string_view text;
        bool shown;
    } rows[] = {
        {"1", kText, true},
        {"0", kText, false},
        {"2", kText, false},
        {"1", "vERSION=2\r\n* The version information above MUST be the first line of the data file", false},
        {"1", "", true},
    };
    set("AutoSyntaxCheck", "False");
    for (const auto& row : rows) {
        set("Show KLT Checker Window", row.setting);
        open(file("a.klt", row.text));
        bool shown = false;
        duringPass([&] { shown = progress() && progress()->isVisible(); });
        check();
        EXPECT_EQ(shown, row.shown) << row.setting << ' ' << row.text;
    }
}

TEST_F(ColourDocumentTest, AnUnlockedDocumentShowsThePassUnderWay) {
    std::string text = "[ADS]";
    for (int n = 0; n < 3'000; ++n) text += "\r\nSea Legs, 5, PAGE(H12), cat(Sea), notes(of the sea)";
    set("AutoSyntaxCheck", "False");
    open(file("a.klt", text));
    box().ColourRun(0, 4, 7);
    bool watched = false;
    std::function<void()> watch = [&] {
        if (label("Label8") == "0%") return duringPass(watch);
        pressLock();
        EXPECT_TRUE(box().updatesEnabled());
        EXPECT_THAT(box().StyleRuns().toStdString(), HasSubstr("0 5 Sections"));
        EXPECT_THAT(textOf(active()), HasSubstr("Legs, 5, page(H12)"));
        EXPECT_EQ(box().StyleAt(box().Length() - 30), 0) << "not yet reached";
        pressLock();
        EXPECT_FALSE(box().updatesEnabled());
        watched = true;
    };
    duringPass(watch);
    check();
    EXPECT_TRUE(watched);
    EXPECT_TRUE(box().updatesEnabled());
    EXPECT_EQ(textOf(active()).find("PAGE"), std::string::npos);
}

TEST_F(ColourDocumentTest, WhatIsAskedDuringAPassWaitsForItsEnd) {
    auto& first = open(file("a.klt", kText));
    const auto other = file("b.klt", "b"), dropped = file("c.klt", "c");
    bool tried = false;
    duringPass([&] {
        tried = true;
        QTest::keyClick(&box(), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&box(), 'x');
        action("F1")->trigger();
        editor().queue.submit(Origin::Outside, [&] { open(other); });
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(dropped))});
        dropOnto(window(), data);
        subWindow(first).close();
        window().close();
        set("Show KLT Checker Window", "0");
        box().SetSelStart(0);
        box().SetSelText("lost");
        EXPECT_EQ(textOf(first), kChecked) << "no edit falls into a pass";
        EXPECT_EQ(window().forms().count(), 2);
    });
    answerMessage(QMessageBox::Cancel);
    check();
    ASSERT_TRUE(tried);
    EXPECT_EQ(window().forms().count(), 2);
    answerMessage(QMessageBox::Cancel);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() == 2; }));
    EXPECT_EQ(textOf(first), std::string(kChecked) + "x");
    EXPECT_EQ(window().forms().count(), 5) << "the new one, the other process's and the dropped one";
    EXPECT_FALSE(editor().isOver()) << "the user cancelled";
}

TEST_F(ColourDocumentTest, WaitingKeysGoWhereAWaitingCommandMovesTheFocus) {
    auto& first = open(file("a.klt", kText));
    duringPass([&] {
        action("F1")->trigger();
        QTest::keyClick(first.RichTextBox1, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(first.RichTextBox1, 'x');
    });
    check();
    EXPECT_TRUE(QTest::qWaitFor([&] { return &active() != &first && active().Modified(); }));
    EXPECT_EQ(textOf(active()).back(), 'x');
    EXPECT_FALSE(first.Modified());
}

TEST_F(ColourDocumentTest, WhatIsMeantForADialogDoesNotWaitForItsEnd) {
    open(file("a.klt", kText));
    const auto other = file("b.klt", kText);
    QDialog dialog(&window());
    QLineEdit edit(&dialog);
    QPushButton yes("&Yes", &dialog);
    yes.move(0, 40);
    dialog.setModal(true);
    dialog.show();
    edit.setFocus();
    duringPass([&] {
        QTest::keyClick(&edit, 'q');
        QTest::mouseClick(&yes, Qt::LeftButton);
        EXPECT_EQ(edit.text(), "");
        EXPECT_EQ(progress()->parentWidget(), &dialog) << "below it no button would answer";
    });
    QSignalSpy pressed(&yes, &QPushButton::clicked);
    editor().queue.submit(Origin::Outside, [&] { open(other); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.count() == 1; }));
    EXPECT_EQ(edit.text(), "q") << "though the click has moved the focus at once";
}

TEST_F(ColourDocumentTest, AnAccessKeyOpensItsMenuWhenThePassIsOver) {
    set("Show KLT Checker Window", "0");
    open(file("a.klt", kText));
    bool tried = false;
    duringPass([&] {
        tried = true;
        QTest::keyClick(&box(), Qt::Key_F, Qt::AltModifier);
        QTest::keyClick(&box(), Qt::Key_N);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });
    check();
    EXPECT_TRUE(tried);
    EXPECT_TRUE(QTest::qWaitFor([this] { return active().Caption() == "KLT2"; })) << "and keys go on in it";
}

TEST_F(ColourDocumentTest, AChangedPreferenceShowsAtTheNextPass) {
    open(file("a.klt", kText));
    const auto colour = [&] {
        return box().SendScintilla(QsciScintillaBase::SCI_STYLEGETFORE, static_cast<unsigned long>(7));
    };
    EXPECT_EQ(colour(), 0xFF8000) << "0, 128, 255 in the order blue, green, red";
    EXPECT_EQ(variables().Settings.SaveSetting("Sections", "Color", "12"), true);
    EXPECT_EQ(colour(), 0xFF8000);
    check();
    EXPECT_EQ(colour(), 0x0000FF);
}

}  // namespace
