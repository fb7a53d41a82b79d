// What every text area owes its users, asked of the widget and of the one without a window alike.

#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <type_traits>

#include "support/MemoryTextArea.h"
#include "text/TextAreaGuards.h"
#include "ui/RichTextBox.h"

using namespace klt;
using namespace std::string_literals;
using testing::ElementsAre;

namespace {

template <typename Area>
class TextAreaContract : public testing::Test {
protected:
    TextAreaContract() {
        if constexpr (std::is_same_v<Area, RichTextBox>) {
            QObject::connect(&area_, &RichTextBox::Change, [this] { changed(); });
            QObject::connect(&area_, &RichTextBox::SelChange, [this] { ++selChanges; });
        } else {
            area_.onChange = [this] { changed(); };
            area_.onSelChange = [this] { ++selChanges; };
        }
    }

    void changed() {
        ++changes;
        flagSeen = flag;
        if (onChange) onChange();
    }

    /// The text, the selection, and a digit for each byte's style.
    std::string shown() const {
        std::string styles;
        for (Position place = 0; place < area_.Length(); ++place)
            styles += static_cast<char>('0' + area_.StyleAt(place));
        return std::string(area_.Text()) + "|" + std::to_string(area_.SelStart()) + "+" +
               std::to_string(area_.SelLength()) + "|" + styles;
    }

    void start(std::string_view text, Position selStart = 0, Position selLength = 0) {
        area_.SetText(text);
        area_.Select(selStart, selLength);
        changes = selChanges = 0;
    }

    Area area_;
    int changes = 0;
    int selChanges = 0;
    bool flag = false;
    bool flagSeen = false;
    std::function<void()> onChange;
};

using Areas = testing::Types<MemoryTextArea, RichTextBox>;
TYPED_TEST_SUITE(TextAreaContract, Areas);

TYPED_TEST(TextAreaContract, TextComesBackByteForByteWithItsLineEndsMadeCrLf) {
    const struct {
        std::string in, out;
    } rows[] = {
        {"", ""},
        {"a\r\nb", "a\r\nb"},
        {"a\nb\r\rc\n", "a\r\nb\r\n\r\nc\r\n"},
        {"\n\r", "\r\n\r\n"},
        {"x\0y\0"s, "x\0y\0"s},
        {"\xFF\xFE \xE2\x82 \x80", "\xFF\xFE \xE2\x82 \x80"},
        {"\u00E4\u20AC\U0001F600", "\u00E4\u20AC\U0001F600"},
        {"\u2028\u0085\v\f", "\u2028\u0085\v\f"},
    };
    auto& area = this->area_;
    for (const auto& row : rows) {
        area.SetText("before");
        area.Select(2, 2);
        area.SetText(row.in);
        EXPECT_EQ(area.Text(), row.out);
        EXPECT_EQ(area.Length(), static_cast<Position>(row.out.size()));
        EXPECT_EQ(area.SelStart() + area.SelLength(), 0);
        area.Select(0, 99);
        EXPECT_EQ(area.SelText(), row.out);
    }
    area.SetText("its own text");
    area.SetText(area.Text().substr(4));
    EXPECT_EQ(area.Text(), "own text");
    area.SetSelText(area.Slice(0, 4));
    EXPECT_EQ(area.Text(), "own own text");
}

TYPED_TEST(TextAreaContract, SelectionsKeepOffTheInsidesOfUnits) {
    // 0 a, 1 CR LF, 3 two bytes, 5 four bytes, 9 a byte of no character, 10 the end
    const std::string text = "a\r\n\u00E4\U0001F600\x80";
    const struct {
        Position start, length, newStart, newLength;
    } rows[] = {
        {0, 0, 0, 0},    {1, 0, 1, 0},    {2, 0, 1, 0},
        {2, 1, 1, 2},    {0, 2, 0, 3},    {3, 2, 3, 2},
        {4, 0, 3, 0},    {4, 2, 3, 6},    {6, 1, 5, 4},
        {8, 0, 5, 0},    {9, 1, 9, 1},    {10, 0, 10, 0},
        {11, 5, 10, 0},  {-3, 4, 0, 5},   {4, -2, 3, 0},
        {0, 999, 0, 10}, {999, 0, 10, 0}, {3, std::numeric_limits<Position>::max(), 3, 7},
    };
    auto& area = this->area_;
    this->start(text);
    for (const auto& row : rows) {
        area.Select(row.start, row.length);
        EXPECT_EQ(area.SelStart(), row.newStart) << row.start << "+" << row.length;
        EXPECT_EQ(area.SelLength(), row.newLength) << row.start << "+" << row.length;
    }
    area.SetSelStart(3);
    area.SetSelLength(6);
    EXPECT_EQ(area.SelText(), "\u00E4\U0001F600");
}

TYPED_TEST(TextAreaContract, Slices) {
    this->start("abc\0def"s);
    EXPECT_EQ(this->area_.Slice(1, 5), "bc\0d"s);
    EXPECT_EQ(this->area_.Slice(-5, 2), "ab");
    EXPECT_EQ(this->area_.Slice(5, 99), "ef");
    EXPECT_EQ(this->area_.Slice(3, 3), "");
    EXPECT_EQ(this->area_.Slice(5, 2), "");
}

TYPED_TEST(TextAreaContract, WritesOverTheSelectionInTheStyleAtTheCaret) {
    const struct {
        Position start, length;
        std::string in, shown;
    } rows[] = {
        {3, 0, "", "abcDEF|3+0|000111"},
        {3, 0, "x", "abcxDEF|4+0|0000111"},
        {4, 0, "x", "abcDxEF|5+0|0001111"},
        {0, 0, "x", "xabcDEF|1+0|0000111"},
        {6, 0, "x", "abcDEFx|7+0|0001111"},
        {3, 3, "xy", "abcxy|5+0|00000"},
        {2, 3, "", "abF|2+0|001"},
        {0, 6, "x", "x|1+0|0"},
        {3, 0, "\n", "abc\r\nDEF|5+0|00000111"},
        {3, 0, "x\0\xFF"s, "abcx\0\xFF"s + "DEF|6+0|000000111"},
    };
    for (const auto& row : rows) {
        this->start("abcDEF");
        this->area_.ColourRun(3, 6, 1);
        this->area_.Select(row.start, row.length);
        this->changes = 0;
        EXPECT_TRUE(this->area_.SetSelText(row.in));
        EXPECT_EQ(this->shown(), row.shown);
        EXPECT_EQ(this->changes, row.in.empty() && row.length == 0 ? 0 : 1) << row.shown;
    }
    this->start("abc", 0, 3);
    this->area_.ColourRun(0, 3, 5);
    this->area_.SetSelText("x");
    EXPECT_EQ(this->shown(), "x|1+0|5") << "at the start it is the first character's";
}

TYPED_TEST(TextAreaContract, WritesInAStyleThatWasSet) {
    auto& area = this->area_;
    this->start("abc", 1);
    area.SetSelStyle(7);
    area.SetSelText("x");
    area.SetSelText("y");
    EXPECT_EQ(this->shown(), "axybc|3+0|07700");
    area.SetSelStyle(8);
    area.SetSelStart(5);
    area.SetSelStart(3);
    area.SetSelText("z");
    EXPECT_EQ(this->shown(), "axyzbc|4+0|077700") << "gone with the caret's move";
    area.Select(0, 2);
    area.SetSelStyle(2);
    EXPECT_EQ(this->shown(), "axyzbc|0+2|227700");
    area.SetSelText("q");
    EXPECT_EQ(this->shown(), "qyzbc|1+0|27700");
}

TYPED_TEST(TextAreaContract, WritesTextWithItsStyles) {
    auto& area = this->area_;
    this->start("ab", 1);
    EXPECT_TRUE(area.SetSelTextStyled("x\ny", "\1\2\3"));
    EXPECT_EQ(this->shown(), "ax\r\nyb|5+0|012230");
    EXPECT_TRUE(area.SetSelTextStyled("\r\n", "\4\5"));
    EXPECT_EQ(this->shown(), "ax\r\ny\r\nb|7+0|01223450");
    EXPECT_FALSE(area.SetSelTextStyled("xyz", "\1\2"));
    EXPECT_EQ(this->changes, 2);
}

TYPED_TEST(TextAreaContract, ProtectionRefusesAnEditWhole) {
    const struct {
        Position start, length;
        const char* in;
        const char* text;  // nullptr: refused
    } rows[] = {
        {0, 0, "x", "xab[RUN]cd"}, {1, 1, "", "a[RUN]cd"},  {1, 1, "x", "ax[RUN]cd"},
        {2, 0, "x", nullptr},      {3, 0, "x", nullptr},    {6, 0, "x", nullptr},
        {7, 0, "x", "ab[RUN]xcd"}, {7, 2, "x", "ab[RUN]x"}, {2, 5, "", nullptr},
        {2, 5, "[RUN]", nullptr},  {1, 2, "", nullptr},     {6, 2, "", nullptr},
        {0, 9, "x", nullptr},      {3, 1, "x", nullptr},    {2, 0, "", "ab[RUN]cd"},
    };
    auto& area = this->area_;
    for (const auto& row : rows) {
        this->start("ab[RUN]cd");
        area.ColourRun(2, 7, 9, true);
        area.Select(row.start, row.length);
        this->changes = this->selChanges = 0;
        const auto before = this->shown();
        EXPECT_EQ(area.SetSelText(row.in), row.text != nullptr) << row.start << "+" << row.length << row.in;
        if (row.text != nullptr) {
            EXPECT_EQ(area.Text(), row.text);
            const auto run = static_cast<Position>(area.Text().find('['));
            EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{run, run + 5}));
        } else {
            EXPECT_EQ(this->shown(), before);
            EXPECT_EQ(this->changes + this->selChanges, 0);
            EXPECT_FALSE(area.CanUndo());
        }
    }
}

TYPED_TEST(TextAreaContract, BehindAProtectedRunTextIsNormal) {
    auto& area = this->area_;
    this->start("RUN");
    area.ColourRun(0, 3, 9, true);
    area.SetSelStart(3);
    area.SetSelText("x");
    EXPECT_EQ(this->shown(), "RUNx|4+0|9990");
    area.SetSelStart(3);
    area.SetSelStyle(4);
    area.SetSelText("y");
    EXPECT_EQ(this->shown(), "RUNyx|4+0|99940");
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 3}));
}

TYPED_TEST(TextAreaContract, ProtectedRunsJoinAndSplit) {
    auto& area = this->area_;
    this->start("0123456789");
    area.ColourRun(6, 8, 1, true);
    area.ColourRun(1, 3, 1, true);
    area.ColourRun(3, 4, 2, true);
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{1, 4}, TextRange{6, 8}));
    area.ColourRun(2, 3, 0);
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{1, 2}, TextRange{3, 4}, TextRange{6, 8}));
    area.ColourRun(0, 7, 0, true);
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 8}));
    area.ColourRun(5, 5, 3, true);
    area.ColourRun(6, 5, 3);
    area.ColourRun(20, 30, 3, true);
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 8}));
    area.SetStyles("\1\1\1\1\1\1\1\1\1\1", {{8, 9}, {2, 4}});
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{2, 4}, TextRange{8, 9}));
    area.SetText("new");
    EXPECT_TRUE(area.ProtectedRuns().empty());
    area.Select(0, 3);
    EXPECT_TRUE(area.SetSelText("free"));
}

TYPED_TEST(TextAreaContract, StylesAreLaidInSilence) {
    auto& area = this->area_;
    this->start("a\r\nb\u00E4", 1);
    area.SetStyles("\1\2\3\4\5\6");
    EXPECT_EQ(this->shown(), "a\r\nb\u00E4|1+0|123456");
    area.SetStyles("\1\1");
    area.ColourRun(2, 5, 9);
    EXPECT_EQ(this->shown(), "a\r\nb\u00E4|1+0|199999");
    EXPECT_EQ(area.StyleAt(-1) + area.StyleAt(6) + area.StyleAt(99), 0);
    EXPECT_EQ(this->changes + this->selChanges, 0);
}

TYPED_TEST(TextAreaContract, RewritesKeepStylesSelectionProtectionAndHistory) {
    auto& area = this->area_;
    for (const auto& [start, length] : {std::pair(0, 0), {2, 0}, {3, 2}, {5, 0}, {9, 0}, {7, 4}}) {
        this->start("version=1 x", 10);
        area.SetSelText("y");
        area.SetStyles("\1\2\3\4\5\6\7\1\1\1\1\1");
        area.Select(start, length);
        this->changes = this->selChanges = 0;
        area.RewriteRun(0, "Version=2");
        area.RewriteRun(9, "too long");
        area.RewriteRun(-1, "x");
        EXPECT_EQ(this->shown(),
                  "Version=2 yx|" + std::to_string(start) + "+" + std::to_string(length) + "|123456711111");
        EXPECT_EQ(this->changes + this->selChanges, 0);
        area.Undo();
        EXPECT_EQ(area.Text(), "Version=2 x");
    }
    area.ColourRun(0, 9, 1, true);
    area.RewriteRun(0, "VERSION");
    EXPECT_EQ(area.Text(), "VERSION=2 x");
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 9}));
    area.Select(0, 1);
    EXPECT_FALSE(area.SetSelText("x")) << "still closed";
}

TYPED_TEST(TextAreaContract, Lines) {
    auto& area = this->area_;
    this->start("ab\r\n\r\n\u00E4c\0d\r\n"s);
    EXPECT_EQ(area.LineCount(), 4);
    const struct {
        Position line, index, length;
    } rows[] = {{-1, kNotFound, 0}, {0, 0, 2}, {1, 4, 0}, {2, 6, 5}, {3, 13, 0}, {4, kNotFound, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(area.LineIndex(row.line), row.index) << row.line;
        EXPECT_EQ(area.LineLength(row.line), row.length) << row.line;
    }
    const std::pair<Position, Position> places[] = {{-1, 0}, {0, 0},  {2, 0},  {4, 1},
                                                    {6, 2},  {12, 2}, {13, 3}, {99, 3}};
    for (const auto& [place, line] : places) EXPECT_EQ(area.GetLineFromChar(place), line) << place;
    area.SetText("");
    EXPECT_EQ(area.LineCount(), 1);
    EXPECT_EQ(area.LineIndex(0), 0);
}

TYPED_TEST(TextAreaContract, Scrolls) {
    auto& area = this->area_;
    std::string text;
    for (int line = 0; line < 500; ++line) text += "line\r\n";
    this->start(text);
    EXPECT_EQ(area.FirstVisibleLine(), 0);
    area.ScrollToLine(100);
    EXPECT_EQ(area.FirstVisibleLine(), 100);
    area.ScrollToLine(-4);
    EXPECT_EQ(area.FirstVisibleLine(), 0);
    area.ScrollToLine(100000);
    EXPECT_GT(area.FirstVisibleLine(), 300);
    EXPECT_LE(area.FirstVisibleLine(), 500);
    area.SetSelStart(area.LineIndex(200));
    EXPECT_GT(area.FirstVisibleLine(), 300) << "a caret moved by code does not scroll";
    area.ScrollCaret();
    EXPECT_LE(area.FirstVisibleLine(), 200);
    EXPECT_GT(area.FirstVisibleLine(), 100);
    EXPECT_EQ(this->changes, 0);
    area.SetText("short");
    EXPECT_EQ(area.FirstVisibleLine(), 0);
}

TYPED_TEST(TextAreaContract, UpToAndSpan) {
    auto& area = this->area_;
    this->start("[ADS]\r\n<Mental>\r\nname, 5\r\n");
    const struct {
        const char* what;
        std::function<void()> act;
        Position from, length, start, newLength;
    } rows[] = {
        {"forward", [&] { area.UpTo("\r\n"); }, 7, 0, 15, 0},
        {"forward from the end of a selection", [&] { area.UpTo("<"); }, 0, 5, 7, 0},
        {"forward to the end", [&] { area.UpTo("#"); }, 3, 0, 26, 0},
        {"forward, there already", [&] { area.UpTo("<"); }, 7, 0, 7, 0},
        {"backward", [&] { area.UpTo("\r\n", false); }, 20, 0, 17, 0},
        {"backward, there already", [&] { area.UpTo("\r\n", false); }, 17, 0, 17, 0},
        {"backward to the start", [&] { area.UpTo("#", false); }, 20, 0, 0, 0},
        {"span until", [&] { area.Span("]", true, true); }, 1, 0, 1, 3},
        {"span over", [&] { area.Span("ADS"); }, 1, 0, 1, 3},
        {"span on behind a selection", [&] { area.Span("\r\n", true, true); }, 17, 2, 17, 7},
        {"span to the end", [&] { area.Span("#", true, true); }, 17, 0, 17, 9},
        {"span backward", [&] { area.Span("\r\n", false, true); }, 20, 2, 17, 5},
        {"span backward over nothing", [&] { area.Span("#", false); }, 20, 2, 20, 2},
    };
    for (const auto& row : rows) {
        area.Select(row.from, row.length);
        row.act();
        EXPECT_EQ(area.SelStart(), row.start) << row.what;
        EXPECT_EQ(area.SelLength(), row.newLength) << row.what;
    }
}

TYPED_TEST(TextAreaContract, Finds) {
    const struct {
        std::string text, find;
        Position start, end;
        FindOptions options;
        Position place, length;
    } rows[] = {
        {"one Two two", "two", 0, -1, {}, 4, 3},
        {"one Two two", "two", 5, -1, {}, 8, 3},
        {"one Two two", "two", 0, -1, {.matchCase = true}, 8, 3},
        {"one Two", "two", 0, 6, {}, kNotFound, 0},
        {"one Two", "two", 0, 7, {}, 4, 3},
        {"one Two", "two", 0, 999, {}, 4, 3},
        {"one Two", "", 0, -1, {}, kNotFound, 0},
        {"one", "one two", 0, -1, {}, kNotFound, 0},
        {"none one", "one", 0, -1, {.wholeWord = true}, 5, 3},
        {"a\0b\0C"s, "\0c"s, 0, -1, {}, 3, 2},
        {"10 \u212A", "k", 0, -1, {}, 3, 3},
        {"a\r\nb", "\r\n", 0, -1, {}, 1, 2},
        {"a\r\nb", "\n", 0, -1, {}, kNotFound, 0},
        {"a\r\nb", "A\r", 0, -1, {}, kNotFound, 0},
        {"abc", "a", -7, -1, {}, 0, 1},
        {"abc", "a", 99, -1, {}, kNotFound, 0},
        {"abc", "a", 2, 1, {}, kNotFound, 0},
    };
    for (const auto& row : rows) {
        this->start(row.text, 1);
        EXPECT_EQ(this->area_.Find(row.find, row.start, row.end, row.options), row.place) << row.find;
        EXPECT_EQ(this->area_.SelStart(), row.place == kNotFound ? 1 : row.place) << row.find;
        EXPECT_EQ(this->area_.SelLength(), row.length) << row.find;
    }
}

TYPED_TEST(TextAreaContract, UndoesAndRedoesStepByStep) {
    auto& area = this->area_;
    this->start("ab", 1);
    EXPECT_FALSE(area.CanUndo() || area.CanRedo());
    area.SetSelText("x");
    area.SetSelText("y");
    {
        const UndoGroup group(area);
        area.SetSelText("1");
        area.Select(0, 1);
        area.SetSelText("2");
    }
    this->changes = 0;
    const char* const steps[] = {"2xy1b", "axyb", "axb", "ab"};
    for (size_t step = 1; step < std::size(steps); ++step) {
        EXPECT_TRUE(area.CanUndo());
        area.Undo();
        EXPECT_EQ(area.Text(), steps[step]);
    }
    EXPECT_FALSE(area.CanUndo());
    area.Undo();
    EXPECT_EQ(this->changes, 3);
    for (size_t step = std::size(steps) - 1; step-- > 0;) {
        EXPECT_TRUE(area.CanRedo());
        area.Redo();
        EXPECT_EQ(area.Text(), steps[step]);
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

TYPED_TEST(TextAreaContract, ReplacesAllOfTheTextInOneStep) {
    auto& area = this->area_;
    for (const std::string_view text : {"", "x", "one\ntwo"}) {
        this->start("Version=2\r\nab", 3, 2);
        area.ColourRun(0, 9, 9, true);
        area.ColourRun(11, 13, 4);
        EXPECT_TRUE(area.ReplaceText(text));
        const std::string whole = text.size() > 1 ? "one\r\ntwo" : std::string(text);
        EXPECT_EQ(this->shown(), whole + "|0+0|" + std::string(whole.size(), '0'));
        EXPECT_TRUE(area.ProtectedRuns().empty());
        EXPECT_EQ(this->changes, 1);
        area.Undo();
        EXPECT_EQ(area.Text(), "Version=2\r\nab");
        EXPECT_FALSE(area.CanUndo());
        area.Redo();
        EXPECT_EQ(area.Text(), whole);
    }
}

TYPED_TEST(TextAreaContract, UndoNeverReachesBehindProtection) {
    auto& area = this->area_;
    this->start("Version=2\r\nab", 9);
    area.SetSelText("0");
    area.ColourRun(0, 10, 9, true);
    EXPECT_FALSE(area.CanUndo());
    area.SetSelStart(13);
    area.SetSelText("x");
    EXPECT_TRUE(area.CanUndo());
    area.Undo();
    EXPECT_EQ(area.Text(), "Version=20\r\nab");
    area.Redo();
    EXPECT_EQ(area.Text(), "Version=20\r\naxb");
    EXPECT_THAT(area.ProtectedRuns(), ElementsAre(TextRange{0, 10}));
}

TYPED_TEST(TextAreaContract, NotifiesOnceForEachEditAndEachMove) {
    auto& area = this->area_;
    this->start("abcdef");
    const struct {
        const char* what;
        std::function<void()> act;
        int changes, selChanges;
    } rows[] = {
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
    for (const auto& row : rows) {
        this->changes = this->selChanges = 0;
        row.act();
        EXPECT_EQ(this->changes, row.changes) << row.what;
        EXPECT_EQ(this->selChanges, row.selChanges) << row.what;
    }
}

TYPED_TEST(TextAreaContract, NotifiesBeforeTheOperationReturns) {
    auto& area = this->area_;
    const std::function<void()> operations[] = {
        [&] { area.SetText("text"); },
        [&] { area.SetSelText("more"); },
        [&] { area.Undo(); },
        [&] { area.Redo(); },
    };
    for (const auto& operation : operations) {
        this->flagSeen = false;
        this->flag = true;
        operation();
        this->flag = false;
        EXPECT_TRUE(this->flagSeen);
    }
}

TYPED_TEST(TextAreaContract, HandlersMayEdit) {
    auto& area = this->area_;
    this->onChange = [&] {
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
    EXPECT_EQ(this->changes, 1);
    EXPECT_EQ(this->selChanges, 0);
    EXPECT_FALSE(area.CanUndo());
}

TYPED_TEST(TextAreaContract, MaskedChangesAreNeverTold) {
    auto& area = this->area_;
    this->start("abc");
    {
        const NotificationMask mask(area);
        area.SetSelStart(2);
        {
            const NotificationMask inner(area);
            area.SetSelText("x");
        }
        area.SetText("def");
        area.SetSelStart(2);
    }
    EXPECT_EQ(this->changes + this->selChanges, 0);
    area.SetSelStart(2);
    EXPECT_EQ(this->selChanges, 0);
    area.SetSelText("y");
    EXPECT_EQ(this->changes, 1);
    EXPECT_EQ(this->selChanges, 1);
}

}  // namespace
