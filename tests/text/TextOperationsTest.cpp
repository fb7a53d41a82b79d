#include "text/TextOperations.h"

#include <gmock/gmock.h>

#include <cstring>

using namespace klt;
using namespace std::string_literals;
using testing::ElementsAre;

TEST(TextOperations, StripEnclosingQuotes) {
    const std::pair<const char*, const char*> rows[] = {{"\"a b\" \"c\"", "a b\" \"c"},
                                                        {"  \"a\"  ", "a"},
                                                        {"\"a", "\"a"},
                                                        {"a\"", "a\""},
                                                        {"\"", "\""},
                                                        {"\"\"", ""},
                                                        {"   ", ""},
                                                        {" a b ", "a b"}};
    for (const auto& [text, stripped] : rows) EXPECT_EQ(StripEnclosingQuotes(text), stripped) << text;
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
    const std::tuple<std::string, std::string, std::string, std::string, bool, size_t> rows[] = {
        {"/d:/a /d:/b", "/d:/", "/x/", "/x/a /x/b", true, 2},
        {"a  b    c", "  ", " ", "a b  c", true, 3},
        {"aaaa", "aa", "a", "aa", true, 2},
        {"abab", "ab", "", "", true, 2},
        {"Skill SKILL", "skill", "x", "Skill SKILL", true, 0},
        {"Skill SKILL", "sKILl", "x", "x x", false, 2},
        {"a\0b\0b"s, "\0b"s, "\0"s, "a\0\0"s, false, 2},
        {"aabaabaaac", "AABAAAC", "x", "aabx", false, 1},
        {"abc", "", "x", "abc", false, 0},
        {"", "a", "x", "", true, 0},
        {"\xC3", "\xC3\xA4", "x", "\xC3", false, 0},
    };
    for (const auto& [text, find, with, result, matchCase, expected] : rows) {
        size_t count = 99;
        EXPECT_EQ(FastReplace(text, find, with, matchCase, &count), result) << text;
        EXPECT_EQ(count, expected) << text;
    }
}

TEST(TextOperations, FastReplaceInAPart) {
    const std::tuple<TextRange, std::string, size_t> rows[] = {
        {{0, 9}, "x x x", 3},   {{0, 6}, "x x Ab", 2},   {{0, 4}, "x aB Ab", 1},   {{1, 9}, "ab x x", 2},
        {{-3, 99}, "x x x", 3}, {{6, 2}, "ab aB Ab", 0}, {{3, -1}, "ab aB Ab", 0}, {{99, 100}, "ab aB Ab", 0},
    };
    for (const auto& [part, result, expected] : rows) {
        size_t count = 99;
        EXPECT_EQ(FastReplace("ab aB Ab", part, "AB", "x", false, &count), result)
            << part.start << " to " << part.end;
        EXPECT_EQ(count, expected);
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
