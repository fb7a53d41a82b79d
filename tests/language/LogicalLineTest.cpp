#include "language/LogicalLine.h"

#include <gtest/gtest.h>

using namespace klt;

TEST(LogicalLine, Kinds) {
    using enum LineKind;
    const std::pair<LineKind, std::vector<const char*>> rows[] = {
        {Blank, {"", "   "}},
        {Comment, {" * x"}},
        {SectionHeader, {" [x"}},
        {SubsectionHeader, {" <x"}},
        {Version, {"VERSION=2"}},
        {PackageHeader, {"{x"}},
        {Item, {"\t", "Version=2 ", " {x", "// x"}},
    };
    for (const auto& [kind, lines] : rows)
        for (const auto* line : lines) EXPECT_EQ(classifyLine(line, Section::Packages), kind) << line;
    EXPECT_EQ(classifyLine("{x", Section::Ads), LineKind::Item);
}

static void expectTaken(std::string_view text, const LogicalLine& line, std::array<size_t, 3> endNextLines) {
    EXPECT_EQ((std::array{line.end, line.next, static_cast<size_t>(line.lines)}), endNextLines) << text;
    EXPECT_GE(longestLine(text), line.commentEnd - line.start) << text;
}

TEST(LogicalLine, JoinsItemLines) {
    const std::pair<std::string_view, std::array<size_t, 3>> rows[] = {
        {"a\r\nb", {1, 3, 1}},
        {"a, \r\nb|\r\nc_\r\nd\r\ne", {14, 16, 4}},
        {"a,\r\n\r\nb", {2, 6, 2}},
        {"a,\r\n \r\nb", {5, 7, 2}},
        {"a,\t\r\nb", {3, 5, 1}},
        {"a,", {2, 4, 1}},
        {"a,\r\n", {2, 6, 2}},
        {"a//,\r\nb", {1, 6, 1}},
        {"a,\r\nb//,\r\nc", {11, 13, 3}},
        {"a,\nb\r\nc", {4, 6, 1}},
        {"\n\r\n", {1, 3, 1}},
    };
    for (const auto& [line, taken] : rows) expectTaken(line, itemLine(line, 0, EmptyTest::NextLine), taken);
    const std::string_view text = "a,\r\nb,\r\n\r\nc";
    expectTaken(text, itemLine(text, 0, EmptyTest::NextLine), {6, 10, 3});
    expectTaken(text, itemLine(text, 0, EmptyTest::FirstFollowing), {8, 10, 3});
    expectTaken("a,\r\n\r\nb", itemLine("a,\r\n\r\nb", 0, EmptyTest::FirstFollowing), {2, 6, 2});
    EXPECT_EQ(itemLine("a // b\r\nc", 0, EmptyTest::NextLine).commentEnd, 6);
}

TEST(LogicalLine, JoinsPackageHeaders) {
    for (const auto& [text, taken] : {std::pair("{a _ \r\n\r\nb", std::array<size_t, 3>{7, 9, 2}),
                                      {"{a,\r\nb", {3, 5, 1}},
                                      {"{a_", {3, 5, 1}}})
        expectTaken(text, packageHeader(text, 0), taken);
}

TEST(LogicalLine, TheLongestIsFound) {
    EXPECT_EQ(longestLine(""), 0);
    EXPECT_EQ(longestLine("abc\r\nde,\r\nfg_\r\nh\r\nijkl"), 11);
    EXPECT_EQ(longestLine("a\r\nbcde"), 4);
}
