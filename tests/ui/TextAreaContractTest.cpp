// What every text area owes its users, asked of the widget and of the one without a window alike.

#include <gmock/gmock.h>

#include <functional>
#include <limits>

#include "support/MarkedText.h"
#include "support/MemoryTextArea.h"
#include "text/TextAreaGuards.h"
#include "ui/RichTextBox.h"

using namespace klt;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::Pair;
using Act = std::function<void()>;

namespace {

class TextAreaContract : public testing::TestWithParam<const char*> {
protected:
    TextAreaContract() {
        memory_.onChange = [this] { changed(); };
        memory_.onSelChange = [this] { ++selChanges; };
        QObject::connect(&box_, &RichTextBox::Change, memory_.onChange);
        QObject::connect(&box_, &RichTextBox::SelChange, memory_.onSelChange);
    }

    void changed() {
        ++changes;
        onChange();
    }
    std::string shown() const { return markedText(area) + "|" + styleDigits(area); }
    std::string selection() const {
        return std::to_string(area.SelStart()) + "+" + std::to_string(area.SelLength());
    }
    void start(std::string_view text, Position from = 0, Position length = 0) {
        area.SetText(text);
        area.Select(from, length);
        changes = selChanges = 0;
    }
    bool write(Position from, Position length, std::string_view text) {
        area.Select(from, length);
        return area.SetSelText(text);
    }
    /// What Undo and Redo lead to, one after the other, and that none is left then.
    void expectUndo(std::initializer_list<const char*> texts) {
        for (const char* text : texts) {
            EXPECT_TRUE(area.CanUndo());
            area.Undo();
            EXPECT_EQ(area.Text(), text);
        }
        EXPECT_FALSE(area.CanUndo());
    }

    MemoryTextArea memory_;
    RichTextBox box_;
    TextArea& area = GetParam() == std::string("Widget") ? box_ : static_cast<TextArea&>(memory_);
    int changes = 0;
    int selChanges = 0;
    Act onChange = [] {};
};

INSTANTIATE_TEST_SUITE_P(Both, TextAreaContract, testing::Values("Widget", "WithoutWindow"),
                         [](const auto& row) { return row.param; });

TEST_P(TextAreaContract, TextComesBackByteForByteWithItsLineEndsMadeCrLf) {
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {"a\nb\r\rc\n", "a\r\nb\r\n\r\nc\r\n"},
        {"x\0y\0"s, "x\0y\0"s},
        {"\xFF\xFE \xE2\x82 \x80", "\xFF\xFE \xE2\x82 \x80"},
        {"\u00E4\u20AC\U0001F600", "\u00E4\u20AC\U0001F600"},
        {"\u2028\u0085\v\f", "\u2028\u0085\v\f"},
    };
    for (const auto& [in, out] : rows) {
        start("before", 2, 2);
        area.SetText(in);
        EXPECT_EQ(markedText(area), "<>" + out);
        EXPECT_EQ(area.Length(), static_cast<Position>(out.size()));
        area.Select(0, 99);
        EXPECT_EQ(area.SelText(), out);
    }
    area.SetText("its own text");
    area.SetText(area.Text().substr(4));
    EXPECT_EQ(area.Text(), "own text");
    area.SetSelText(area.Slice(0, 4));
    EXPECT_EQ(area.Text(), "own own text");
}

TEST_P(TextAreaContract, SelectionsKeepOffTheInsidesOfUnits) {
    constexpr auto kMost = std::numeric_limits<Position>::max();
    const std::tuple<Position, Position, const char*> rows[] = {
        {0, 0, "0+0"},    {1, 0, "1+0"},    {2, 0, "1+0"},    {2, 1, "1+2"},  {0, 2, "0+3"},
        {3, 2, "3+2"},    {4, 0, "3+0"},    {4, 2, "3+6"},    {6, 1, "5+4"},  {8, 0, "5+0"},
        {9, 1, "9+1"},    {10, 0, "10+0"},  {11, 5, "10+0"},  {-3, 4, "0+5"}, {4, -2, "3+0"},
        {0, 999, "0+10"}, {999, 0, "10+0"}, {3, kMost, "3+7"}};
    // 0 a, 1 CR LF, 3 two bytes, 5 four bytes, 9 a byte of no character, 10 the end
    start("a\r\n\u00E4\U0001F600\x80");
    for (const auto& [from, length, wanted] : rows) {
        area.Select(from, length);
        EXPECT_EQ(selection(), wanted) << from << "+" << length;
    }
    area.SetSelStart(3);
    area.SetSelLength(6);
    EXPECT_EQ(area.SelText(), "\u00E4\U0001F600");
}

TEST_P(TextAreaContract, Slices) {
    start("abc\0def"s);
    const std::tuple<Position, Position, std::string> rows[] = {
        {1, 5, "bc\0d"s}, {-5, 2, "ab"}, {5, 99, "ef"}, {3, 3, ""}, {5, 2, ""}};
    for (const auto& [from, to, slice] : rows) EXPECT_EQ(area.Slice(from, to), slice);
}

TEST_P(TextAreaContract, TracksAStretchThroughEdits) {
    // The stretch is "cd".
    const std::tuple<const char*, Position, Position, const char*, const char*> rows[] = {
        {"in front", 0, 1, "xyz", "cd"},  {"at its start", 2, 0, "x", "cd"},
        {"at its end", 4, 0, "x", "cd"},  {"behind", 5, 1, "", "cd"},
        {"inside", 3, 0, "x", "cxd!"},    {"a part of it", 2, 1, "x", "d!"},
        {"over its end", 3, 2, "", "c!"}, {"over all", 1, 4, "", "!"}};
    for (const auto& [name, from, length, in, wanted] : rows) {
        start("abcdef");
        const auto tracked = area.Track({2, 4});
        write(from, length, in);
        const auto [begin, end] = tracked->range;
        EXPECT_EQ(std::string(area.Slice(begin, end)) + (tracked->isTouched ? "!" : ""), wanted) << name;
        area.Undo();
        const std::string_view after = area.Slice(tracked->range.start, tracked->range.end);
        EXPECT_TRUE(tracked->isTouched || after == "cd") << name;
    }
    start("abcdef");
    const auto tracked = area.Track({2, 4});
    area.RewriteRun(0, "ABCDEF");
    EXPECT_TRUE(area.Slice(2, 4) == "CD" && !tracked->isTouched) << "letters that are put right are no edit";
    area.SetText("other");
    EXPECT_TRUE(tracked->isTouched);
}

TEST_P(TextAreaContract, WritesOverTheSelectionInTheStyleAtTheCaret) {
    const std::tuple<Position, Position, std::string, std::string> rows[] = {
        {3, 0, "", "abc<>DEF|000111"},
        {3, 0, "x", "abcx<>DEF|0000111"},
        {4, 0, "x", "abcDx<>EF|0001111"},
        {0, 0, "x", "x<>abcDEF|0000111"},
        {6, 0, "x", "abcDEFx<>|0001111"},
        {3, 3, "xy", "abcxy<>|00000"},
        {2, 3, "", "ab<>F|001"},
        {0, 6, "x", "x<>|0"},
        {3, 0, "\n", "abc\r\n<>DEF|00000111"},
        {3, 0, "x\0\xFF"s, "abcx\0\xFF<>DEF|000000111"s},
    };
    for (const auto& [from, length, in, wanted] : rows) {
        start("abcDEF");
        area.ColourRun(3, 6, 1);
        EXPECT_TRUE(write(from, length, in));
        EXPECT_EQ(shown(), wanted);
        EXPECT_EQ(changes, in.empty() && length == 0 ? 0 : 1) << wanted;
    }
    start("abc", 0, 3);
    area.ColourRun(0, 3, 5);
    area.SetSelText("x");
    EXPECT_EQ(shown(), "x<>|5") << "at the start it is the first character's";
}

TEST_P(TextAreaContract, WritesInAStyleThatWasSet) {
    start("abc", 1);
    area.SetSelStyle(7);
    area.SetSelText("x");
    area.SetSelText("y");
    EXPECT_EQ(shown(), "axy<>bc|07700");
    area.SetSelStyle(8);
    area.SetSelStart(5);
    write(3, 0, "z");
    EXPECT_EQ(shown(), "axyz<>bc|077700") << "gone with the caret's move";
    area.Select(0, 2);
    area.SetSelStyle(2);
    EXPECT_EQ(shown(), "<ax>yzbc|227700");
    area.SetSelText("q");
    EXPECT_EQ(shown(), "q<>yzbc|27700");
    start("RUN", 3);
    area.ColourRun(0, 3, 9, true);
    area.SetSelText("x");
    EXPECT_EQ(shown(), "RUNx<>|9990") << "behind a protected run text is normal";
    area.SetSelStart(3);
    area.SetSelStyle(4);
    area.SetSelText("y");
    EXPECT_EQ(shown(), "RUNy<>x|99940");
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 3}));
}

TEST_P(TextAreaContract, WritesTextWithItsStyles) {
    start("ab", 1);
    EXPECT_TRUE(area.SetSelTextStyled("x\ny", "\1\2\3"));
    EXPECT_EQ(shown(), "ax\r\ny<>b|012230");
    EXPECT_TRUE(area.SetSelTextStyled("\r\n", "\4\5"));
    EXPECT_EQ(shown(), "ax\r\ny\r\n<>b|01223450");
    EXPECT_FALSE(area.SetSelTextStyled("xyz", "\1\2"));
    EXPECT_EQ(changes, 2);
}

TEST_P(TextAreaContract, ProtectionRefusesAnEditWhole) {
    constexpr const char* kRefused = nullptr;
    const std::tuple<Position, Position, const char*, const char*> rows[] = {
        {0, 0, "x", "xab[RUN]cd"}, {1, 1, "", "a[RUN]cd"},  {1, 1, "x", "ax[RUN]cd"},
        {2, 0, "x", kRefused},     {3, 0, "x", kRefused},   {6, 0, "x", kRefused},
        {7, 0, "x", "ab[RUN]xcd"}, {7, 2, "x", "ab[RUN]x"}, {2, 5, "", kRefused},
        {2, 5, "[RUN]", kRefused}, {1, 2, "", kRefused},    {6, 2, "", kRefused},
        {0, 9, "x", kRefused},     {3, 1, "x", kRefused},   {2, 0, "", "ab[RUN]cd"},
    };
    for (const auto& [from, length, in, text] : rows) {
        start("ab[RUN]cd", from, length);
        area.ColourRun(2, 7, 9, true);
        const auto before = shown();
        EXPECT_EQ(area.SetSelText(in), text != kRefused) << from << "+" << length << in;
        const auto run = static_cast<Position>(area.Text().find('['));
        EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{run, run + 5}));
        EXPECT_EQ(area.Text(), text != kRefused ? text : "ab[RUN]cd");
        const bool isUntouched = shown() == before && changes + selChanges == 0 && !area.CanUndo();
        EXPECT_TRUE(text != kRefused || isUntouched) << from << "+" << length << in;
    }
}

TEST_P(TextAreaContract, ProtectedRunsJoinAndSplit) {
    start("0123456789");
    area.ColourRun(6, 8, 1, true);
    area.ColourRun(1, 3, 1, true);
    area.ColourRun(3, 4, 2, true);
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{1, 4}, TextRange{6, 8}));
    area.ColourRun(2, 3, 0);
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{1, 2}, TextRange{3, 4}, TextRange{6, 8}));
    area.ColourRun(0, 7, 0, true);
    area.ColourRun(5, 5, 3, true);
    area.ColourRun(6, 5, 3);
    area.ColourRun(20, 30, 3, true);
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 8}));
    area.SetStyles("\1\1\1\1\1\1\1\1\1\1", {{8, 9}, {2, 4}});
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{2, 4}, TextRange{8, 9}));
    start("new", 0, 3);
    EXPECT_TRUE(area.ProtectedRuns().empty());
    EXPECT_TRUE(area.SetSelText("free"));
}

TEST_P(TextAreaContract, StylesAreLaidInSilence) {
    start("a\r\nb\u00E4", 1);
    area.SetStyles("\1\2\3\4\5\6");
    EXPECT_EQ(shown(), "a<>\r\nb\u00E4|123456");
    area.SetStyles("\1\1");
    area.ColourRun(2, 5, 9);
    EXPECT_EQ(shown(), "a<>\r\nb\u00E4|199999");
    EXPECT_EQ(area.StyleAt(-1) + area.StyleAt(6) + area.StyleAt(99), 0);
    EXPECT_EQ(changes + selChanges, 0);
}

TEST_P(TextAreaContract, RewritesKeepStylesSelectionProtectionAndHistory) {
    for (const auto& [from, length] : {std::pair(0, 0), {2, 0}, {3, 2}, {5, 0}, {9, 0}, {7, 4}}) {
        start("version=1 x", 10);
        area.SetSelText("y");
        area.SetStyles("\1\2\3\4\5\6\7\1\1\1\1\1");
        area.Select(from, length);
        changes = selChanges = 0;
        const auto before = selection();
        area.RewriteRun(0, "Version=2");
        area.RewriteRun(9, "too long");
        area.RewriteRun(-1, "x");
        EXPECT_EQ(area.Text(), "Version=2 yx");
        EXPECT_EQ(styleDigits(area), "123456711111");
        EXPECT_EQ(selection(), before);
        EXPECT_EQ(changes + selChanges, 0);
        area.Undo();
        EXPECT_EQ(area.Text(), "Version=2 x");
    }
    area.ColourRun(0, 9, 1, true);
    area.RewriteRun(0, "VERSION");
    EXPECT_EQ(area.Text(), "VERSION=2 x");
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 9}));
    EXPECT_FALSE(write(0, 1, "x")) << "still closed";
}

TEST_P(TextAreaContract, Lines) {
    start("ab\r\n\r\n\u00E4c\0d\r\n"s);
    EXPECT_EQ(area.LineCount(), 4);
    const std::tuple<Position, Position, Position> lines[] = {
        {-1, kNotFound, 0}, {0, 0, 2}, {1, 4, 0}, {2, 6, 5}, {3, 13, 0}, {4, kNotFound, 0}};
    for (const auto& [line, index, length] : lines) {
        EXPECT_EQ(area.LineIndex(line), index) << line;
        EXPECT_EQ(area.LineLength(line), length) << line;
    }
    const std::pair<Position, Position> places[] = {{-1, 0}, {0, 0},  {2, 0},  {4, 1},
                                                    {6, 2},  {12, 2}, {13, 3}, {99, 3}};
    for (const auto& [place, line] : places) EXPECT_EQ(area.GetLineFromChar(place), line) << place;
    area.SetText("");
    EXPECT_THAT(std::pair(area.LineCount(), area.LineIndex(0)), Pair(1, 0));
}

TEST_P(TextAreaContract, Scrolls) {
    std::string text;
    for (int line = 0; line < 500; ++line) text += "line\r\n";
    start(text);
    for (const auto& [line, top] : {std::pair(0, 0), {100, 100}, {-4, 0}}) {
        area.ScrollToLine(line);
        EXPECT_EQ(area.FirstVisibleLine(), top);
    }
    area.ScrollToLine(100000);
    EXPECT_LE(area.FirstVisibleLine(), 500);
    area.SetSelStart(area.LineIndex(200));
    EXPECT_GT(area.FirstVisibleLine(), 300) << "a caret moved by code does not scroll";
    area.ScrollCaret();
    EXPECT_LE(area.FirstVisibleLine(), 200);
    EXPECT_GT(area.FirstVisibleLine(), 100);
    EXPECT_EQ(changes, 0);
    area.SetText("short");
    EXPECT_EQ(area.FirstVisibleLine(), 0);
}

TEST_P(TextAreaContract, UpToAndSpan) {
    start("[ADS]\r\n<Mental>\r\nname, 5\r\n");
    const std::tuple<const char*, Act, Position, Position, const char*> rows[] = {
        {"forward", [&] { area.UpTo("\r\n"); }, 7, 0, "15+0"},
        {"forward from the end of a selection", [&] { area.UpTo("<"); }, 0, 5, "7+0"},
        {"forward to the end", [&] { area.UpTo("#"); }, 3, 0, "26+0"},
        {"forward, there already", [&] { area.UpTo("<"); }, 7, 0, "7+0"},
        {"backward", [&] { area.UpTo("\r\n", false); }, 20, 0, "17+0"},
        {"backward, there already", [&] { area.UpTo("\r\n", false); }, 17, 0, "17+0"},
        {"backward to the start", [&] { area.UpTo("#", false); }, 20, 0, "0+0"},
        {"span until", [&] { area.Span("]", true, true); }, 1, 0, "1+3"},
        {"span over", [&] { area.Span("ADS"); }, 1, 0, "1+3"},
        {"span on behind a selection", [&] { area.Span("\r\n", true, true); }, 17, 2, "17+7"},
        {"span to the end", [&] { area.Span("#", true, true); }, 17, 0, "17+9"},
        {"span backward", [&] { area.Span("\r\n", false, true); }, 20, 2, "17+5"},
        {"span backward over nothing", [&] { area.Span("#", false); }, 20, 2, "20+2"},
    };
    for (const auto& [what, act, from, length, wanted] : rows) {
        area.Select(from, length);
        act();
        EXPECT_EQ(selection(), wanted) << what;
    }
}

TEST_P(TextAreaContract, Finds) {
    const std::tuple<std::string, std::string, Position, Position, FindOptions, const char*> rows[] = {
        {"one Two two", "two", 0, -1, {}, "4+3"},
        {"one Two two", "two", 0, -1, {.matchCase = true}, "8+3"},
        {"one Two", "two", 0, 999, {}, "4+3"},
        {"none one", "one", 0, -1, {.wholeWord = true}, "5+3"},
        {"a\r\nb", "\r\n", 0, -1, {}, "1+2"},
        {"a\r\nb", "\n", 0, -1, {}, ""},
        {"a\r\nb", "A\r", 0, -1, {}, ""},
        {"abc", "a", 99, -1, {}, ""},
        {"abc", "a", 2, 1, {}, ""},
    };
    for (const auto& [text, find, from, to, options, wanted] : rows) {
        start(text, 1);
        const auto found = area.Find(find, from, to, options);
        EXPECT_EQ(selection(), *wanted ? wanted : "1+0") << find << " in " << text;
        EXPECT_EQ(found, *wanted ? area.SelStart() : kNotFound) << find << " in " << text;
    }
}

TEST_P(TextAreaContract, UndoesAndRedoesStepByStep) {
    start("ab", 1);
    EXPECT_FALSE(area.CanUndo() || area.CanRedo());
    area.SetSelText("x");
    area.SetSelText("y");
    {
        const UndoGroup group(area);
        area.SetSelText("1");
        write(0, 1, "2");
    }
    changes = 0;
    expectUndo({"axyb", "axb", "ab"});
    area.Undo();
    EXPECT_EQ(changes, 3);
    for (const char* text : {"axb", "axyb", "2xy1b"}) {
        EXPECT_TRUE(area.CanRedo());
        area.Redo();
        EXPECT_EQ(area.Text(), text);
    }
    EXPECT_FALSE(area.CanRedo());
    area.Undo();
    area.SetSelText("z");
    EXPECT_FALSE(area.CanRedo());
    area.EmptyUndoBuffer();
    EXPECT_FALSE(area.CanUndo());
    area.SetSelText("z");
    area.SetText("all new");
    EXPECT_FALSE(area.CanUndo());
}

TEST_P(TextAreaContract, ReplacesAllOfTheTextInOneStep) {
    for (const auto& [text, whole] : {std::pair("", ""), {"x", "x"}, {"one\ntwo", "one\r\ntwo"}}) {
        start("Version=2\r\nab", 3, 2);
        area.ColourRun(0, 9, 9, true);
        area.ColourRun(11, 13, 4);
        EXPECT_TRUE(area.ReplaceText(text));
        EXPECT_EQ(shown(), "<>"s + whole + "|" + std::string(strlen(whole), '0'));
        EXPECT_TRUE(area.ProtectedRuns().empty());
        EXPECT_EQ(changes, 1);
        expectUndo({"Version=2\r\nab"});
        EXPECT_EQ(styleDigits(area), "9999999990044");
        EXPECT_TRUE(area.ProtectedRuns().empty());
        area.Redo();
        EXPECT_EQ(area.Text(), whole);
        EXPECT_EQ(styleDigits(area), std::string(strlen(whole), '0'));
    }
}

TEST_P(TextAreaContract, UndoNeverReachesBehindProtection) {
    start("Version=2\r\nab", 9);
    area.SetSelText("0");
    area.ColourRun(0, 10, 9, true);
    EXPECT_FALSE(area.CanUndo());
    write(13, 0, "x");
    expectUndo({"Version=20\r\nab"});
    area.Redo();
    EXPECT_EQ(area.Text(), "Version=20\r\naxb");
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 10}));
}

TEST_P(TextAreaContract, NotifiesOnceForEachEditAndEachMoveBeforeItReturns) {
    bool stands = true;
    onChange = [&] { EXPECT_TRUE(stands); };
    start("abcdef");
    const std::tuple<const char*, Act, int, int> rows[] = {
        {"set text", [&] { area.SetText("abcdef"); }, 1, 0},
        {"move", [&] { area.SetSelStart(3); }, 0, 1},
        {"move to the same place", [&] { area.SetSelStart(3); }, 0, 0},
        {"write", [&] { area.SetSelText("x"); }, 1, 1},
        {"undo", [&] { area.Undo(); }, 1, 1},
        {"redo", [&] { area.Redo(); }, 1, 1},
        {"select", [&] { area.Select(1, 2); }, 0, 1},
        {"write over", [&] { area.SetSelText("yz"); }, 1, 1},
        {"find", [&] { area.Find("def", 0); }, 0, 1},
        {"fail to find", [&] { area.Find("q", 0); }, 0, 0},
        {"style", [&] { area.SetSelStyle(3); }, 0, 0},
        {"set text from inside", [&] { area.SetText("abcdef"); }, 1, 1},
    };
    for (const auto& [what, act, edits, moves] : rows) {
        changes = selChanges = 0;
        stands = true;
        act();
        stands = false;
        EXPECT_THAT(std::pair(changes, selChanges), Pair(edits, moves)) << what;
    }
}

TEST_P(TextAreaContract, HandlersMayEdit) {
    onChange = [&] {
        const NotificationMask mask(area);
        if (area.Find("* Modified: ", 0) == kNotFound) return;
        area.SetSelStart(area.SelStart() + area.SelLength());
        area.Span("\r\n", true, true);
        area.SetSelText("March 7, 2001");
        area.SetSelStart(0);
        area.EmptyUndoBuffer();
    };
    area.SetText("Version=2\r\n* Modified: never\r\nx");
    EXPECT_EQ(area.Text(), "Version=2\r\n* Modified: March 7, 2001\r\nx");
    EXPECT_THAT(std::pair(changes, selChanges), Pair(1, 0));
    EXPECT_FALSE(area.CanUndo());
}

TEST_P(TextAreaContract, MaskedChangesAreNeverTold) {
    start("abc");
    {
        const NotificationMask mask(area);
        {
            const NotificationMask inner(area);
            write(2, 0, "x");
        }
        area.SetText("def");
        area.SetSelStart(2);
    }
    area.SetSelStart(2);
    EXPECT_EQ(changes + selChanges, 0);
    area.SetSelText("y");
    EXPECT_THAT(std::pair(changes, selChanges), Pair(1, 1));
}

}  // namespace
