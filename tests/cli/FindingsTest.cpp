#include "cli/Findings.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

std::string shown(const std::vector<Finding>& findings) {
    std::string all;
    const auto add = [&](const LineColumn& at, const char* behind) {
        all.append(std::to_string(at.line)).append(":").append(std::to_string(at.column)).append(behind);
    };
    for (const auto& finding : findings) {
        add(finding.start, "-");
        add(finding.end, " ");
        all.append(errorReason(finding.reason).id).append("\n");
    }
    return all;
}

TEST(Findings, LinesAndCharactersFromOne) {
    constexpr auto kTag = ErrorReason::UnknownTag, kCost = ErrorReason::BadCost;
    static_assert(kTag < kCost);
    const std::tuple<const char*, std::string, ErrorRuns, const char*> rows[] = {
        {"none", "a", {}, ""},
        {"at the start", "abc", {{0, 3, kTag}}, "1:1-1:4 unknown-tag\n"},
        {"second line", "a\r\nbc\r\n", {{4, 5, kTag}}, "2:2-2:3 unknown-tag\n"},
        {"over a line end", "a\r\nbc\r\n", {{0, 5, kTag}}, "1:1-2:3 unknown-tag\n"},
        {"behind a last line end", "a\r\n", {{3, 3, kTag}}, "2:1-2:1 unknown-tag\n"},
        {"characters, not bytes", "\u00e9\u20ac x", {{6, 7, kTag}}, "1:4-1:5 unknown-tag\n"},
        {"inside a character", "\u20acx", {{1, 4, kTag}}, "1:1-1:3 unknown-tag\n"},
        {"a NUL is a character", {"a\0b", 3}, {{2, 3, kTag}}, "1:3-1:4 unknown-tag\n"},
        {"in the order of the text",
         "ab\r\ncd",
         {{5, 6, kTag}, {0, 6, kCost}, {4, 5, kTag}},
         "1:1-2:3 bad-cost\n2:1-2:2 unknown-tag\n2:2-2:3 unknown-tag\n"},
        {"two reasons", "ab", {{0, 1, kCost}, {0, 1, kTag}}, "1:1-1:2 unknown-tag\n1:1-1:2 bad-cost\n"},
        {"laid twice",
         "ab",
         {{0, 1, kTag}, {1, 2, kTag}, {0, 1, kTag}},
         "1:1-1:2 unknown-tag\n1:2-1:3 unknown-tag\n"},
        {"out of the text", "ab", {{-1, 9, kTag}}, "1:1-1:3 unknown-tag\n"},
    };
    for (const auto& [name, text, runs, findings] : rows)
        EXPECT_EQ(shown(findingsOf(text, runs)), findings) << name;
}

}  // namespace
}  // namespace klt
