// F8 and Shift+F8.

#include "app/documents/ErrorWalk.h"

#include "language/StyleCategory.h"
#include "support/EditorFixture.h"

namespace klt {
namespace {

using ErrorWalkTest = EditorFixture;

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

}  // namespace
}  // namespace klt
