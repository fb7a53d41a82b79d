#include "cli/Findings.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

constexpr auto kTag = ErrorReason::UnknownTag;
constexpr auto kCost = ErrorReason::BadCost;

TEST(Findings, LinesAndCharactersFromOne) {
    struct Row {
        const char* name;
        std::string text;
        ErrorRuns runs;
        std::vector<Finding> findings;
    };
    const std::vector<Row> rows = {
        {"none", "a", {}, {}},
        {"at the start", "abc", {{0, 3, kTag}}, {{{1, 1}, {1, 4}, kTag}}},
        {"second line", "a\r\nbc\r\n", {{4, 5, kTag}}, {{{2, 2}, {2, 3}, kTag}}},
        {"over a line end", "a\r\nbc\r\n", {{0, 5, kTag}}, {{{1, 1}, {2, 3}, kTag}}},
        {"behind a last line end", "a\r\n", {{3, 3, kTag}}, {{{2, 1}, {2, 1}, kTag}}},
        {"characters, not bytes", "\u00e9\u20ac x", {{6, 7, kTag}}, {{{1, 4}, {1, 5}, kTag}}},
        {"inside a character", "\u20acx", {{1, 4, kTag}}, {{{1, 1}, {1, 3}, kTag}}},
        {"a NUL is a character", std::string("a\0b", 3), {{2, 3, kTag}}, {{{1, 3}, {1, 4}, kTag}}},
        {"in the order of the text",
         "ab\r\ncd",
         {{5, 6, kTag}, {0, 6, kCost}, {4, 5, kTag}},
         {{{1, 1}, {2, 3}, kCost}, {{2, 1}, {2, 2}, kTag}, {{2, 2}, {2, 3}, kTag}}},
        {"two reasons for one place",
         "ab",
         {{0, 1, kCost}, {0, 1, kTag}},
         {{{1, 1}, {1, 2}, kTag}, {{1, 1}, {1, 2}, kCost}}},
        {"laid twice",
         "ab",
         {{0, 1, kTag}, {1, 2, kTag}, {0, 1, kTag}},
         {{{1, 1}, {1, 2}, kTag}, {{1, 2}, {1, 3}, kTag}}},
        {"out of the text", "ab", {{-1, 9, kTag}}, {{{1, 1}, {1, 3}, kTag}}},
    };
    static_assert(kTag < kCost);
    for (const auto& row : rows) EXPECT_EQ(findingsOf(row.text, row.runs), row.findings) << row.name;
}

}  // namespace

// For the messages of the test.
void PrintTo(const Finding& finding, std::ostream* stream) {
    *stream << finding.start.line << ":" << finding.start.column << "-" << finding.end.line << ":"
            << finding.end.column << " " << errorReason(finding.reason).id;
}

}  // namespace klt
