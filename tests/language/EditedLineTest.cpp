#include "language/EditedLine.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

TEST(EditedLine, TakesTheLinesThatEachGoOn) {
    struct Row {
        std::string_view document;
        Position place;
        std::string_view text;
        TextRange range;
    };
    for (const auto& row : {
             Row{"", 0, "", {0, 0}},
             Row{"a\r\nb\r\nc", 3, "b", {3, 6}},
             Row{"a\r\nb\r\nc", 99, "c", {6, 7}},
             Row{"a\r\nb", -5, "a", {0, 3}},
             Row{"ab\r\nc", 3, "ab", {0, 4}},
             Row{"a,\r\nb |\r\nc_ \r\nd\r\ne", 1, "a, _\r\nb | _\r\nc_ \r\nd", {0, 17}},
             Row{"a,\r\nb,\r\nc", 4, "b, _\r\nc", {4, 9}},
             Row{"a,\r\n\r\nb", 0, "a, _\r\n", {0, 6}},
             Row{"a, // b,\r\nc", 0, "a, // b,", {0, 10}},
             Row{"a,\r\nb //,\r\nc", 0, "a, _\r\nb //,", {0, 11}},
             Row{"a,\r\n * b,\r\nc", 0, "a, _\r\n * b,", {0, 11}},
             Row{"a,\t\r\nb", 0, "a,\t", {0, 5}},
             Row{"a,", 0, "a, _\r\n", {0, 2}},
             Row{"a_\r\n", 0, "a_\r\n", {0, 4}},
         }) {
        const auto line = GetLogicalLine(row.document, row.place);
        EXPECT_EQ(line.text, row.text) << row.document;
        EXPECT_EQ(line.range, row.range) << row.document;
    }
}

TEST(EditedLine, JoinsInSinglePasses) {
    struct Row {
        std::string_view logical, item, package;
    };
    for (const auto& row : {
             Row{"a, _\r\n\tb _\r\n\tc", "a, b c", "a, b c"},
             Row{"a,_\r\nb", "a,b", "a,_\r\nb"},
             Row{"a    b   c\t d", "a  b  c d", "a  b  c d"},
             Row{"a~P b ~P c~p d", "a~P b ~P c~p d", "a ~P b ~P c~p d"},
             Row{"_\r\n\t", " ", "_\r\n "},
             Row{"_\r\n", "", "_\r\n"},
             Row{"", "", ""},
         }) {
        EXPECT_EQ(joinItemLine(row.logical), row.item);
        EXPECT_EQ(joinPackageLine(row.logical), row.package);
    }
}

}  // namespace
}  // namespace klt
