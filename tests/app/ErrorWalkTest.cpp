// F8 and Shift+F8.

#include "app/documents/ErrorWalk.h"

#include <QLabel>
#include <QMouseEvent>

#include "app/commands/Commands.h"
#include "checker/ErrorReason.h"
#include "language/StyleCategory.h"
#include "support/EditorFixture.h"

namespace klt {
namespace {

class ErrorWalkTest : public EditorFixture {
protected:
    void openChecked(std::string_view text) {
        openNew();
        box().SetText(text);
        check();
    }
    void check() {
        runCommand(editor(), "T6");
        activate(window());
    }
    QLabel* tip() { return box().findChild<QLabel*>("ErrorTip"); }
    /// What a tip tells; empty where none is shown.
    std::string told() { return tip() && tip()->isVisible() ? tip()->text().toStdString() : std::string(); }
};

TEST_F(ErrorWalkTest, WalksFromRunToRunAndStopsAtTheEnds) {
    constexpr Position kFar = 40'000;  // styles are read in smaller blocks
    openNew();
    RichTextBox& text = box();
    text.SetText("ab\r\ncdef\r\n" + std::string(kFar, 'x') + '\n' + std::string(kFar, 'y'));
    const Position length = text.Length();
    const TextRange first{0, 2}, second{5, 7}, huge{20, kFar - 5}, last{length - 4, length};
    for (const auto& run : {first, second, huge, last})
        text.ColourRun(run.start, run.end, static_cast<StyleByte>(StyleCategory::SyntaxError));
    text.ColourRun(2, 5, static_cast<StyleByte>(StyleCategory::Comments));

    const struct {
        const char* what;
        std::optional<TextRange> from;  // else where the row before ended
        Qt::KeyboardModifiers modifiers;
        TextRange to;
    } rows[] = {
        {"a run at the very start", TextRange{0, 0}, {}, first},
        {"the next", {}, {}, second},
        {"a run of several blocks", {}, {}, huge},
        {"one at the very end", {}, {}, last},
        {"does not wrap", {}, {}, last},
        {"back", {}, kShift, huge},
        {"and back", {}, kShift, second},
        {"to the first", {}, kShift, first},
        {"does not wrap backward", {}, kShift, first},
        {"from inside a run on to the next", TextRange{6, 6}, {}, huge},
        {"from inside a run back to the one before", TextRange{6, 6}, kShift, first},
        {"from right behind a run", TextRange{7, 7}, kShift, second},
        {"from right in front of a run", TextRange{5, 5}, {}, second},
        {"a selection counts from its end", TextRange{1, 6}, {}, huge},
        {"and backward from its start", TextRange{7, 30}, kShift, second},
    };
    for (const auto& row : rows) {
        if (row.from) text.Select(row.from->start, row.from->end - row.from->start);
        key(Qt::Key_F8, row.modifiers);
        EXPECT_EQ((TextRange{text.SelStart(), text.SelStart() + text.SelLength()}), row.to) << row.what;
    }
    text.SetSelStart(kFar + 20);
    key(Qt::Key_F8);
    EXPECT_GT(text.FirstVisibleLine() + text.SendScintilla(RichTextBox::SCI_GETXOFFSET), 1000) << "in view";

    {
        const CommandQueue::Hold hold(editor().queue);
        key(Qt::Key_F8, kShift);
        EXPECT_EQ(text.SelStart(), last.start) << "waits like a command";
    }
    letEventsRun();
    EXPECT_EQ(text.SelStart(), huge.start);
}

TEST_F(ErrorWalkTest, ATipTellsWhyUntilTheNextKey) {
    openChecked("[ADS]\r\nSea Legs, 5, blah(H12)\r\nRope, 5x\r\n[FOO]");
    RichTextBox& text = box();
    const std::string cost = reasonText(ErrorReason::BadCost, "5x");
    const std::pair<Qt::KeyboardModifiers, std::string> rows[] = {
        {{}, reasonText(ErrorReason::UnknownTag, "blah(")},
        {{}, cost},
        {{}, reasonText(ErrorReason::UnknownSection, "[FOO]")},
        {kShift, cost},
    };
    text.SetSelStart(0);
    for (const auto& [modifiers, reason] : rows) {
        key(Qt::Key_F8, modifiers);
        ASSERT_EQ(told(), reason);
        EXPECT_TRUE(tip()->isWindow());
        const auto bottom = text.SendScintilla(RichTextBox::SCI_POINTYFROMPOSITION, 0UL, text.SelStart()) +
                            text.SendScintilla(RichTextBox::SCI_TEXTHEIGHT, 0UL);
        EXPECT_EQ(text.viewport()->mapFromGlobal(tip()->geometry().topLeft()).y(), bottom)
            << "right below the line";
    }
    QMouseEvent move(QEvent::MouseMove, {1, 1}, text.viewport()->mapToGlobal(QPointF(1, 1)), Qt::NoButton, {},
                     {});
    QApplication::sendEvent(text.viewport(), &move);
    EXPECT_EQ(told(), cost) << "the mouse does not take it away";
    key(Qt::Key_Left);
    EXPECT_EQ(told(), "");

    text.SetSelStart(text.SelStart() + 1);
    type("7");
    text.SetSelStart(0);
    for (int step = 0; step < 2; ++step) key(Qt::Key_F8);
    EXPECT_EQ(told(), "Changed since the last check (Ctrl+K)");
    check();
    text.SetSelStart(0);
    for (int step = 0; step < 2; ++step) key(Qt::Key_F8);
    EXPECT_EQ(told(), reasonText(ErrorReason::BadCost, "75x"));
}

TEST_F(ErrorWalkTest, WhereThereIsNoErrorATipSaysSo) {
    openChecked("[ADS]\r\nRope, 5");
    RichTextBox& text = box();
    for (const auto modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(kShift)}) {
        key(Qt::Key_F8, modifiers);
        EXPECT_EQ(told(), "No errors");
        key(Qt::Key_Home);
        EXPECT_EQ(told(), "");
    }
    text.ColourRun(7, 11, static_cast<StyleByte>(StyleCategory::SyntaxError));
    text.SetSelStart(8);
    key(Qt::Key_F8);
    EXPECT_EQ(told(), "No errors below");
    text.SetSelStart(7);
    key(Qt::Key_F8, kShift);
    EXPECT_EQ(told(), "No errors above");
}

TEST_F(ErrorWalkTest, TheFirstKeyThatAProtectedLineRefusesTellsWhy) {
    openNew();
    check();
    const auto isTold = [&] { return told() == "The version line can't be changed"; };
    const struct {
        Qt::Key key;
        bool isTold;
    } rows[] = {{Qt::Key_X, true},      {Qt::Key_X, false},     {Qt::Key_Backspace, false},
                {Qt::Key_Right, false}, {Qt::Key_Delete, true}, {Qt::Key_Return, false}};
    box().SetSelStart(2);
    const auto before = textOf(active());
    for (const auto& row : rows) {
        key(row.key);
        EXPECT_EQ(isTold(), row.isTold) << row.key;
    }
    EXPECT_EQ(textOf(active()), before);
    key(Qt::Key_End, kCtrl);
    key(Qt::Key_X);
    EXPECT_FALSE(isTold());
}

TEST_F(ErrorWalkTest, FindsAWrongLineThatUndoOrRedoBroughtBack) {
    openChecked("[ADS]\r\nSea Legs, 5\r\nRope, 5x\r\nEar, 5\r\n");
    RichTextBox& text = box();
    const std::string styles = text.Styles();
    const auto wrong = text.Text().find("Rope");
    const auto expectFound = [&](const char* what) {
        text.SetSelStart(0);
        key(Qt::Key_F8);
        EXPECT_EQ(text.SelText(), " 5x") << what;
        EXPECT_EQ(text.errorAt(text.SelStart()), "not a cost: 5x") << what;
    };

    text.SetSelStart(static_cast<Position>(wrong));
    key(Qt::Key_Down, kShift);
    key(Qt::Key_Delete);
    text.SetSelStart(0);
    key(Qt::Key_F8);
    EXPECT_EQ(text.SelLength(), 0) << "gone";
    key(Qt::Key_Z, kCtrl);
    EXPECT_EQ(text.Styles(), styles);
    expectFound("deleted and undone");

    text.SetSelStart(static_cast<Position>(text.Text().find("x\r")));
    key(Qt::Key_Backspace);
    for (int step = 0; step < 2; ++step) {
        key(Qt::Key_Z, kCtrl);
        expectFound("a part of it");
        key(Qt::Key_Y, kCtrl);
    }
    key(Qt::Key_Z, kCtrl);
    EXPECT_EQ(text.Styles(), styles);
}

TEST_F(ErrorWalkTest, EveryReasonIsKeptHoweverManyThereAre) {
    std::string lines = "[ADS]\r\n";
    for (int line = 0; line < 50'000; ++line) lines += "Rope, 5x\r\n";
    openChecked(lines);
    for (Position place = 14; place < box().Length(); place += 10)
        ASSERT_EQ(box().errorAt(place), "not a cost: 5x") << place;
}

}  // namespace
}  // namespace klt
