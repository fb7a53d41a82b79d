#include <gmock/gmock.h>

#include <QDialog>
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

constexpr auto kWindowSetting = "Show KLT Checker Window";

class ColourDocumentTest : public EditorFixture {
protected:
    void setOption(std::string_view key, std::string_view value) { set("Options", key, value); }
    /// As a command that is carried out alone: what waits for it comes later.
    void check() { runCommand(editor(), "T6"); }
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
    /// The same in a check by command.
    void checkDoing(const std::function<void()>& work) {
        bool isDone = false;
        duringPass([&] {
            work();
            isDone = true;
        });
        check();
        EXPECT_TRUE(isDone);
    }
    QObject life_;
};

TEST_F(ColourDocumentTest, ADocumentIsCheckedWhenItIsOpenedOrOnCommand) {
    for (const bool onLoad : {true, false}) {
        setOption("AutoSyntaxCheck", onLoad ? "True" : "False");
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
    key(Qt::Key_Return);
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

TEST_F(ColourDocumentTest, TheWindowIsShownBySettingAndNotForANewDocument) {
    const std::tuple<const char*, std::string_view, bool> rows[] = {
        {"1", kText, true},
        {"0", kText, false},
        {"2", kText, false},
        {"1", "vERSION=2\r\n* The version information above MUST be the first line of the data file", false},
        {"1", "", true},
    };
    setOption("AutoSyntaxCheck", "False");
    for (const auto& [value, text, isShown] : rows) {
        setOption(kWindowSetting, value);
        open(file("a.klt", text));
        bool seen = false;
        checkDoing([&] { seen = progress() && progress()->isVisible(); });
        EXPECT_EQ(seen, isShown) << value << ' ' << text;
    }
}

TEST_F(ColourDocumentTest, TheWindowTellsHowFarThePassIsAndUnlocksTheDocument) {
    setOption("AutoSyntaxCheck", "False");
    std::string text = "[ADS]\r\n<Sea>";
    for (int n = 0; n < 3'000; ++n) text += "\r\nSea Legs, 5, PAGE(H12), cat(Sea), notes(of the sea)";
    open(file("a.klt", text));
    box().ColourRun(box().Length() - 40, box().Length(), 7);
    bool watched = false;
    std::function<void()> watch = [&] {
        EXPECT_EQ(progress()->windowTitle(), "KLT Editor Syntax Checker");
        if (label("Label8") == "0%") return duringPass(watch);
        EXPECT_EQ(label("lblCurrSection") + label("lblCurrSubSection"), "[ADS]<Sea>");
        const auto* bar = progress()->findChild<QProgressBar*>();
        EXPECT_EQ(bar->maximum(), 3'002);
        EXPECT_GT(bar->value(), 1);
        EXPECT_EQ(label("Label8"), QString::number(std::lround(bar->value() * 100.0 / 3'002)) + '%');
        pressLock();
        EXPECT_TRUE(box().updatesEnabled());
        EXPECT_THAT(box().StyleRuns().toStdString(), HasSubstr("0 5 Sections"));
        EXPECT_THAT(textOf(active()), HasSubstr("Legs, 5, page(H12)"));
        EXPECT_EQ(box().StyleAt(box().Length() - 30), 0) << "not yet reached";
        pressLock();
        EXPECT_FALSE(box().updatesEnabled());
        progress()->close();
        EXPECT_TRUE(progress()->isHidden()) << "the pass goes on";
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
    answerMessage(QMessageBox::Cancel);
    checkDoing([&] {
        key(Qt::Key_End, kCtrl);
        type("x");
        run("F1");
        editor().queue.submit(Origin::Outside, [&] { open(other); });
        dropFiles(window(), {dropped});
        subWindow(first).close();
        window().close();
        setOption(kWindowSetting, "0");
        box().SetSelStart(0);
        box().SetSelText("lost");
        EXPECT_EQ(textOf(first), kChecked) << "no edit falls into a pass";
        EXPECT_EQ(count(), 1);
    });
    EXPECT_EQ(count(), 1);
    answerMessage(QMessageBox::Cancel);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() == 2; }));
    EXPECT_EQ(textOf(first), std::string(kChecked) + "x");
    EXPECT_EQ(count(), 4) << "the new one, the other process's and the dropped one";
    EXPECT_FALSE(editor().isOver()) << "the user cancelled";
}

TEST_F(ColourDocumentTest, WaitingKeysGoWhereAWaitingCommandMovesTheFocus) {
    auto& first = open(file("a.klt", kText));
    checkDoing([&] {
        run("F1");
        key(Qt::Key_End, kCtrl);
        type("x");
    });
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
    setOption(kWindowSetting, "0");
    open(file("a.klt", kText));
    checkDoing([&] {
        key(Qt::Key_F, Qt::AltModifier);
        key(Qt::Key_N);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });
    EXPECT_TRUE(QTest::qWaitFor([this] { return active().Caption() == "KLT2"; })) << "and keys go on in it";
}

TEST_F(ColourDocumentTest, AChangedPreferenceShowsAtTheNextPass) {
    open(file("a.klt", kText));
    const auto colour = [&] { return box().SendScintilla(QsciScintillaBase::SCI_STYLEGETFORE, 7UL); };
    EXPECT_EQ(colour(), 0xFF8000) << "0, 128, 255 in the order blue, green, red";
    EXPECT_TRUE(variables().Settings.SaveSetting("Sections", "Color", "12"));
    EXPECT_EQ(colour(), 0xFF8000);
    check();
    EXPECT_EQ(colour(), 0x0000FF);
}

}  // namespace
