#include "text/Unicode.h"

#include <gtest/gtest.h>

using namespace klt;
using namespace std::string_literals;

TEST(Unicode, ValidUtf8) {
    const auto check = [](const std::string& text, bool valid) {
        // In front of the fast path's block, across its end, and behind it.
        for (const size_t before : {0, 1, 63, 64, 65, 127, 200}) {
            const auto all = std::string(before, 'x') + text;
            EXPECT_EQ(isValidUtf8(all), valid) << text << " behind " << before;
            EXPECT_EQ(isValidUtf8(all + std::string(before, 'y')), valid) << text << " in " << before;
        }
    };
    for (const auto& text : {""s, "a\0b"s, "ä€😀"s, "\xF4\x8F\xBF\xBF"s, "\xEF\xBF\xBF"s}) check(text, true);
    // Alone or cut, overlong, a surrogate, behind the last character.
    for (const auto* text : {"\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xC3\xA4\xA4", "\xFF", "\xC0\x80",
                             "\xE0\x80\xAF", "\xF0\x80\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        check(text, false);
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
    const std::array<size_t, 5> rows[] = {
        {0, 0, 0, 1, 0},  {1, 1, 1, 3, 0},     {2, 1, 3, 3, 1},      {3, 3, 3, 5, 1},
        {4, 3, 5, 5, 3},  {5, 5, 5, 9, 3},     {6, 5, 9, 7, 5},      {8, 5, 9, 9, 7},
        {9, 9, 9, 10, 5}, {10, 10, 10, 11, 9}, {11, 11, 11, 11, 10}, {99, 11, 11, 11, 10},
    };
    for (const auto& [place, start, end, next, previous] : rows) {
        EXPECT_EQ(unitStart(text, place), start) << place;
        EXPECT_EQ(unitEnd(text, place), end) << place;
        EXPECT_EQ(nextUnit(text, place), next) << place;
        EXPECT_EQ(previousUnit(text, place), previous) << place;
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
