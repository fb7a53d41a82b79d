#include "language/LogicalLine.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

TEST(LogicalLine, Kinds) {
    struct Row {
        const char* line;
        LineKind kind;
    };
    for (const auto& row : {Row{"", LineKind::Blank}, Row{"   ", LineKind::Blank}, Row{"\t", LineKind::Item},
                            Row{" * x", LineKind::Comment}, Row{" [x", LineKind::SectionHeader},
                            Row{" <x", LineKind::SubsectionHeader}, Row{"VERSION=2", LineKind::Version},
                            Row{"Version=2 ", LineKind::Item}, Row{"{x", LineKind::PackageHeader},
                            Row{" {x", LineKind::Item}, Row{"// x", LineKind::Item}})
        EXPECT_EQ(classifyLine(row.line, Section::Packages), row.kind) << row.line;
    EXPECT_EQ(classifyLine("{x", Section::Ads), LineKind::Item);
}

struct Taken {
    size_t end, next;
    Position lines;
};

void expectTaken(std::string_view text, const LogicalLine& line, const Taken& wanted) {
    EXPECT_EQ(line.end, wanted.end) << text;
    EXPECT_EQ(line.next, wanted.next) << text;
    EXPECT_EQ(line.lines, wanted.lines) << text;
    EXPECT_GE(longestLine(text), line.commentEnd - line.start) << text;
}

TEST(LogicalLine, JoinsItemLines) {
    struct Row {
        std::string_view text;
        Taken taken;
    };
    for (const auto& row : {
             Row{"a\r\nb", {1, 3, 1}},
             Row{"a, \r\nb|\r\nc_\r\nd\r\ne", {14, 16, 4}},
             Row{"a,\r\n\r\nb", {2, 6, 2}},
             Row{"a,\r\n \r\nb", {5, 7, 2}},
             Row{"a,\t\r\nb", {3, 5, 1}},
             Row{"a,", {2, 4, 1}},
             Row{"a,\r\n", {2, 6, 2}},
             Row{"a//,\r\nb", {1, 6, 1}},
             Row{"a,\r\nb//,\r\nc", {11, 13, 3}},
             Row{"a,\nb\r\nc", {4, 6, 1}},
         })
        expectTaken(row.text, itemLine(row.text, 0, EmptyTest::NextLine), row.taken);
    const std::string_view text = "a,\r\nb,\r\n\r\nc";
    expectTaken(text, itemLine(text, 0, EmptyTest::NextLine), {6, 10, 3});
    expectTaken(text, itemLine(text, 0, EmptyTest::FirstFollowing), {8, 10, 3});
    EXPECT_EQ(itemLine("a // b\r\nc", 0, EmptyTest::NextLine).commentEnd, 6);
}

TEST(LogicalLine, JoinsPackageHeaders) {
    expectTaken("{a _ \r\n\r\nb", packageHeader("{a _ \r\n\r\nb", 0), {7, 9, 2});
    expectTaken("{a,\r\nb", packageHeader("{a,\r\nb", 0), {3, 5, 1});
    expectTaken("{a_", packageHeader("{a_", 0), {3, 5, 1});
}

TEST(LogicalLine, TheLongestIsFound) {
    EXPECT_EQ(longestLine(""), 0);
    EXPECT_EQ(longestLine("abc\r\nde,\r\nfg_\r\nh\r\nijkl"), 11);
    EXPECT_EQ(longestLine("a\r\nbcde"), 4);
}

TEST(LogicalLine, EndsAtCrLfAlone) {
    EXPECT_EQ(lineEnd("a\nb\rc\r\nd", 0), 5);
    EXPECT_EQ(lineEnd("\n\r\n", 0), 1);
    EXPECT_EQ(lineEnd("abc", 3), 3);
}

}  // namespace
}  // namespace klt
