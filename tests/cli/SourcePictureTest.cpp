#include "cli/SourcePicture.h"

#include <gtest/gtest.h>

#include "text/ShownText.h"
#include "text/Unicode.h"

namespace klt {
namespace {

struct Case {
    std::string text;
    TextRange run;
    size_t caret;
};

// "{" and "}" around the run, "^" in front of the caret.
Case read(std::string text) {
    const auto take = [&](char mark) {
        const auto at = text.find(mark);
        if (at != std::string::npos) text.erase(at, 1);
        return at;
    };
    const auto start = take('{'), caret = take('^'), end = take('}');
    return {
        text, {static_cast<Position>(start), static_cast<Position>(end)}, caret == text.npos ? start : caret};
}

TEST(SourcePicture, Rows) {
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"a run", "Raft, {five}, b", "Raft, five, b", "      ^~~~"},
        {"a caret in it", "{Raft, ^five}", "Raft, five", "~~~~~~^~~~"},
        {"up to the line's end", "Raft, {f\r\nx}y", "Raft, f", "      ^"},
        {"behind the last character", "Raft{}", "Raft", "    ^"},
        {"an empty line", "{}", "", "^"},
        {"tabs", "a\t{b\tc}d", "a       b       cd", "        ^~~~~~~~~"},
        {"wide characters", "\u6f22\u6f22{\u6f22\u6f22}x", "\u6f22\u6f22\u6f22\u6f22x", "    ^~~~"},
        {"marks on characters", "e\u0301{e\u0301x}y", "e\u0301e\u0301xy", " ^~"},
        {"a run from a mark", "e{\u0301x}", "e\u0301x", "^~"},
        {"control characters", "\x1b[1m{x}", "\u241b[1mx", "    ^"},
        {"just as wide", "12345678901234567890{123}", "12345678901234567890123", "                    ^~~"},
        {"cut behind", "{a}bcdefghijklmnopqrstuvwxyz", "abcdefghijklmnopqrst...", "^"},
        {"cut in front", "abcdefghijklmnopqrstuvwxy{z}", "...ghijklmnopqrstuvwxyz",
         "                      ^"},
        {"cut on both sides", "abcdefghijklmnopqrst{uv}wxyzabcdefghijklmnopqrstuvwxyz",
         "...lmnopqrstuvwxyzab...", "            ^~"},
        {"a long run", "abcdefghijklmnopqrst{uvwxyzabcdefghijklmnopqrs}tuvwxyz", "...lmnopqrstuvwxyzab...",
         "            ^~~~~~~~"},
    };
    for (const auto& [name, marked, line, marks] : rows) {
        const auto [text, run, caret] = read(marked);
        const auto picture = pictureOf(text, 0, run, caret, 24);
        EXPECT_EQ(picture.line, line) << name;
        EXPECT_EQ(picture.marks, marks) << name;
    }
    const std::string second = "a\r\nbc\r\nd";
    EXPECT_EQ(pictureOf(second, 3, {4, 5}, 4, 80).line, "bc");
}

size_t columnsOf(std::string_view text) {
    size_t columns = 0;
    for (size_t at = 0; at < text.size(); at += characterAt(text, at).length)
        columns += static_cast<size_t>(shownCharacter(characterAt(text, at).code).columns);
    return columns;
}

// What stands above the caret is the character that it is for, wherever that is and whatever is around it.
TEST(SourcePicture, LongLinesAreCutAroundTheCaret) {
    const std::string around[] = {"x", "\u6f22", "a\t", "e\u0301\u0301", "\u00e9\u6f22\tb"};
    for (const auto& piece : around) {
        std::string half;
        while (half.size() < 500'000) half += piece;
        for (const size_t columns : {24, 25, 80, 300}) {
            for (const auto& [before, behind] :
                 {std::pair(half, half), {"", half}, {half, ""}, {piece, half}}) {
                const auto text = before + "!" + behind;
                const auto caret = before.size();
                const auto picture =
                    pictureOf(text, 0, {0, static_cast<Position>(text.size())}, caret, columns);
                ASSERT_LE(columnsOf(picture.line), columns) << piece;
                ASSERT_LE(picture.marks.size(), columns) << piece;
                ASSERT_LT(picture.line.size(), 20 * columns);
                const auto above = picture.line.find('!');
                ASSERT_NE(above, std::string::npos) << picture.line;
                EXPECT_EQ(picture.marks.find('^'), columnsOf(picture.line.substr(0, above)))
                    << picture.line << "\n"
                    << picture.marks;
            }
        }
    }
    const std::string marks = "!" + std::string(100'000, '\xCC');
    EXPECT_LT(pictureOf(marks, 0, {0, 1}, 0, 80).line.size(), 5000U);
}

}  // namespace
}  // namespace klt
