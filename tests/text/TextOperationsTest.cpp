#include "text/TextOperations.h"

#include <gmock/gmock.h>

#include <cstring>

#include "text/TextSearch.h"

using namespace klt;
using namespace std::string_literals;
using testing::ElementsAre;

TEST(TextOperations, StripEnclosingQuotes) {
    const struct {
        const char *text, *stripped;
    } rows[] = {
        {"\"a b\" \"c\"", "a b\" \"c"},
        {"  \"a\"  ", "a"},
        {"\"a", "\"a"},
        {"a\"", "a\""},
        {"\"", "\""},
        {"\"\"", ""},
        {"   ", ""},
        {"", ""},
        {" a b ", "a b"},
    };
    for (const auto& row : rows) EXPECT_EQ(StripEnclosingQuotes(row.text), row.stripped) << row.text;
}

TEST(TextOperations, SplitText) {
    EXPECT_THAT(SplitText("a\" \"b\" \"c", "\" \""), ElementsAre("a", "b", "c"));
    EXPECT_THAT(SplitText("", ","), ElementsAre(""));
    EXPECT_THAT(SplitText(",a,,", ","), ElementsAre("", "a", "", ""));
    EXPECT_THAT(SplitText("aaaa", "aaa"), ElementsAre("", "a"));
    EXPECT_THAT(SplitText("abc", ""), ElementsAre("abc"));
    EXPECT_THAT(SplitText("a\0b\0"s, "\0"s), ElementsAre("a", "b", ""));
}

TEST(TextOperations, FastReplace) {
    const struct {
        std::string text, find, with, result;
        bool matchCase;
        size_t count;
    } rows[] = {
        {"/d:/a /d:/b", "/d:/", "/x/", "/x/a /x/b", true, 2},
        {"a  b    c", "  ", " ", "a b  c", true, 3},
        {"aaaa", "aa", "a", "aa", true, 2},
        {"abab", "ab", "", "", true, 2},
        {"Skill SKILL", "skill", "x", "Skill SKILL", true, 0},
        {"Skill SKILL", "sKILl", "x", "x x", false, 2},
        {"GRÜSSE grüsse", "Grüsse", "x", "x x", false, 2},
        {"ΣΊΣΥΦΟΣ σίσυφος", "σίσυφοσ", "x", "x x", false, 2},
        {"a\0b\0b"s, "\0b"s, "\0"s, "a\0\0"s, false, 2},
        {"10 \u212A = 10 k", "k", "K", "10 K = 10 K", false, 2},
        {"aabaabaaac", "AABAAAC", "x", "aabx", false, 1},
        {"abc", "", "x", "abc", false, 0},
        {"", "a", "x", "", true, 0},
        {"\xC3", "\xC3\xA4", "x", "\xC3", false, 0},
        {"a\xFF\xC3\xA4 \xA4", "\xA4", "x", "a\xFF\xC3\xA4 x", false, 1},
    };
    for (const auto& row : rows) {
        size_t count = 99;
        EXPECT_EQ(FastReplace(row.text, row.find, row.with, row.matchCase, &count), row.result) << row.text;
        EXPECT_EQ(count, row.count) << row.text;
    }
}

TEST(TextOperations, FastReplaceInAPart) {
    const struct {
        TextRange part;
        std::string result;
        size_t count;
    } rows[] = {
        {{0, 9}, "x x x", 3},   {{0, 6}, "x x Ab", 2},   {{0, 4}, "x aB Ab", 1},   {{1, 9}, "ab x x", 2},
        {{-3, 99}, "x x x", 3}, {{6, 2}, "ab aB Ab", 0}, {{3, -1}, "ab aB Ab", 0}, {{99, 100}, "ab aB Ab", 0},
    };
    for (const auto& row : rows) {
        size_t count = 99;
        EXPECT_EQ(FastReplace("ab aB Ab", row.part, "AB", "x", false, &count), row.result)
            << row.part.start << " to " << row.part.end;
        EXPECT_EQ(count, row.count);
    }
}

// Looking ahead anew from each match, for the other case or for rare letters, would need hours here.
TEST(TextOperations, FastReplaceIsLinearInMatches) {
    std::string text;
    for (int n = 0; n < 1'000'000; ++n) text += "kiss net, ";
    for (const char* find : {"net", "KISS"}) {
        size_t count = 0;
        EXPECT_EQ(FastReplace(text, find, "", false, &count).size(), text.size() - 1'000'000 * strlen(find));
        EXPECT_EQ(count, 1'000'000);
    }
}

// A search that starts again at every place would need hours here.
TEST(TextOperations, SearchIsLinearInRepeatedText) {
    const std::string text(4'000'000, 'a');
    const auto find = std::string(1'000'000, 'a') + "b";
    for (const bool matchCase : {true, false})
        EXPECT_EQ(TextSearch(find, matchCase).next(text).start, kNotFound);
}

TEST(TextOperations, SearchTellsWhereTheMatchStartsAndEnds) {
    const TextSearch search("k\u00E4", false);
    const std::string text = "k \u212A\u00C4k\u00E4";
    EXPECT_EQ(search.next(text), (TextRange{2, 7}));
    EXPECT_EQ(search.next(text, 3), (TextRange{7, 10}));
    EXPECT_EQ(search.next(text, 8), (TextRange{kNotFound, kNotFound}));
    EXPECT_EQ(search.next(text, 99), (TextRange{kNotFound, kNotFound}));
    EXPECT_EQ(search.next(text, -5), (TextRange{2, 7}));
}
