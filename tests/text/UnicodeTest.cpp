#include "text/Unicode.h"

#include <gtest/gtest.h>

using namespace klt;
using namespace std::string_literals;

TEST(Unicode, ValidUtf8) {
    const struct {
        std::string text;
        bool valid;
    } rows[] = {
        {"", true},
        {"a\0b"s, true},
        {"ä€😀", true},
        {"\xF4\x8F\xBF\xBF", true},
        {"\xEF\xBF\xBF", true},
        {"\x80", false},
        {"\xC3", false},
        {"\xE2\x82", false},
        {"\xF0\x9F\x98", false},
        {"\xC0\x80", false},          // overlong NUL
        {"\xE0\x80\xAF", false},      // overlong
        {"\xF0\x80\x80\xAF", false},  // overlong
        {"\xED\xA0\x80", false},      // a surrogate
        {"\xF4\x90\x80\x80", false},  // behind the last character
        {"\xC3\xA4\xA4", false},
        {"\xFF", false},
    };
    for (const auto& row : rows) {
        // In front of the fast path's block, across its end, and behind it.
        for (const size_t before : {0, 1, 63, 64, 65, 127, 200}) {
            const auto text = std::string(before, 'x') + row.text;
            EXPECT_EQ(isValidUtf8(text), row.valid) << row.text << " behind " << before;
            EXPECT_EQ(isValidUtf8(text + std::string(before, 'y')), row.valid)
                << row.text << " in " << before;
        }
    }
}

TEST(Unicode, Ascii) {
    for (const size_t place : {0, 1, 63, 64, 100, 129}) {
        std::string text(130, '\x7F');
        EXPECT_TRUE(isAscii(text));
        text[place] = '\x80';
        EXPECT_FALSE(isAscii(text)) << place;
    }
}

TEST(Unicode, CountsCharacters) {
    EXPECT_EQ(countCharacters(""), 0U);
    EXPECT_EQ(countCharacters("ä€😀\r\n\0"s), 6U);
    std::string many;
    for (int i = 0; i < 1000; ++i) many += "xä€";
    EXPECT_EQ(countCharacters(many), 3000U);
}

TEST(Unicode, UnitsAreCharactersAndLineEnds) {
    const std::string text = "a\r\nä😀\n\r";
    const struct {
        size_t place, start, end, next, previous;
    } rows[] = {
        {0, 0, 0, 1, 0},  {1, 1, 1, 3, 0},     {2, 1, 3, 3, 1},      {3, 3, 3, 5, 1},
        {4, 3, 5, 5, 3},  {5, 5, 5, 9, 3},     {6, 5, 9, 7, 5},      {8, 5, 9, 9, 7},
        {9, 9, 9, 10, 5}, {10, 10, 10, 11, 9}, {11, 11, 11, 11, 10}, {99, 11, 11, 11, 10},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(unitStart(text, row.place), row.start) << row.place;
        EXPECT_EQ(unitEnd(text, row.place), row.end) << row.place;
        EXPECT_EQ(nextUnit(text, row.place), row.next) << row.place;
        EXPECT_EQ(previousUnit(text, row.place), row.previous) << row.place;
    }
}

TEST(Unicode, BytesOfNoCharacterStandAlone) {
    const std::string text = "\xA4\xC3\xA4\xA4\xE2\x82";
    size_t place = 0;
    for (const size_t next : {1, 3, 4, 5, 6}) {
        EXPECT_EQ(previousUnit(text, next), place);
        EXPECT_EQ(place = nextUnit(text, place), next);
    }
}

TEST(Unicode, UpperCase) {
    EXPECT_EQ(upperCase("abcXYZ 12\0z"s), "ABCXYZ 12\0Z"s);
    EXPECT_EQ(upperCase("grün éß"), "GRÜN Éẞ");
    EXPECT_EQ(upperCase("ς\xFFz"), "Σ\xFFZ");
}

TEST(Unicode, EqualIgnoringCase) {
    EXPECT_TRUE(equalIgnoringCase("GRÜN\0K"s, "grün\0k"s));
    EXPECT_TRUE(equalIgnoringCase("ΟΔΟΣ", "οδος"));
    EXPECT_TRUE(equalIgnoringCase("\xFF", "\xFF"));
    for (const auto& [left, right] :
         {std::pair("a", "ab"), {"ab", "a"}, {"", "a"}, {"\xFE", "\xFF"}, {"ä", "a"}})
        EXPECT_FALSE(equalIgnoringCase(left, right)) << left << " " << right;
}
