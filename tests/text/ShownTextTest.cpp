#include "text/ShownText.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

TEST(ShownText, CharactersThatATerminalWouldObeyAreReplaced) {
    const std::tuple<char32_t, char32_t, int> rows[] = {
        {U'a', U'a', 1},           {U'\u00e9', U'\u00e9', 1}, {U'\u6f22', U'\u6f22', 2},
        {U'\u0301', U'\u0301', 0}, {U'\0', U'\u2400', 1},     {U'\x1b', U'\u241b', 1},
        {U'\x7f', U'\u2421', 1},   {0x9B, 0xFFFD, 1},         {0x202E, 0xFFFD, 1},
        {0x2066, 0xFFFD, 1},       {0x2028, 0xFFFD, 1},       {0xDCE9, 0xFFFD, 1},
        {U'\u00ad', 0x00AD, 1},
    };
    for (const auto& [code, shown, columns] : rows) {
        const auto found = shownCharacter(code);
        EXPECT_EQ(std::pair(found.code, found.columns), std::pair(shown, columns))
            << std::hex << uint32_t{code};
    }
}

TEST(ShownText, OneLineOfAtMostSoManyCharacters) {
    const std::tuple<std::string, size_t, std::string> rows[] = {
        {"", 3, ""},
        {"abc", 3, "abc"},
        {"abcd", 3, "..."},
        {"\u00e9\u00e9\u00e9\u00e9\u00e9", 4, "\u00e9..."},
        {"a _\r\n\t b", 9, "a _ b"},
        {"\x1b[1m", 9, "\u241b[1m"},
        {"\xE9", 9, "\uFFFD"},
    };
    for (const auto& [text, most, shown] : rows) EXPECT_EQ(shownOnOneLine(text, most), shown) << text;
}

}  // namespace
}  // namespace klt
