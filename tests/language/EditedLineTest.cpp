#include "language/EditedLine.h"

#include <gtest/gtest.h>

using namespace klt;

TEST(EditedLine, TakesTheLinesThatEachGoOn) {
    const std::tuple<std::string_view, Position, std::string_view, TextRange> rows[] = {
        {"", 0, "", {0, 0}},
        {"a\r\nb\r\nc", 3, "b", {3, 6}},
        {"a\r\nb\r\nc", 99, "c", {6, 7}},
        {"a\r\nb", -5, "a", {0, 3}},
        {"ab\r\nc", 3, "ab", {0, 4}},
        {"a,\r\nb |\r\nc_ \r\nd\r\ne", 1, "a, _\r\nb | _\r\nc_ \r\nd", {0, 17}},
        {"a,\r\nb,\r\nc", 4, "b, _\r\nc", {4, 9}},
        {"a,\r\n\r\nb", 0, "a, _\r\n", {0, 6}},
        {"a, // b,\r\nc", 0, "a, // b,", {0, 10}},
        {"a,\r\nb //,\r\nc", 0, "a, _\r\nb //,", {0, 11}},
        {"a,\r\n * b,\r\nc", 0, "a, _\r\n * b,", {0, 11}},
        {"a,\t\r\nb", 0, "a,\t", {0, 5}},
        {"a,", 0, "a, _\r\n", {0, 2}},
        {"a_\r\n", 0, "a_\r\n", {0, 4}},
    };
    for (const auto& [document, place, text, range] : rows) {
        const auto line = GetLogicalLine(document, place);
        EXPECT_EQ(line.text, text) << document;
        EXPECT_EQ(line.range, range) << document;
    }
}

TEST(EditedLine, JoinsInSinglePasses) {
    const std::array<std::string_view, 3> rows[] = {
        {"a, _\r\n\tb _\r\n\tc", "a, b c", "a, b c"},
        {"a,_\r\nb", "a,b", "a,_\r\nb"},
        {"a    b   c\t d", "a  b  c d", "a  b  c d"},
        {"a~P b ~P c~p d", "a~P b ~P c~p d", "a ~P b ~P c~p d"},
        {"_\r\n\t", " ", "_\r\n "},
        {"_\r\n", "", "_\r\n"},
        {"", "", ""},
    };
    for (const auto& [logical, item, package] : rows) {
        EXPECT_EQ(joinItemLine(logical), item);
        EXPECT_EQ(joinPackageLine(logical), package);
    }
}
