#include "language/LineAt.h"

#include <gtest/gtest.h>

namespace klt {
namespace {

/// The same by a walk from the text's start.
struct Walk {
    Section section = Section::Other;
    LineKind kind = LineKind::Blank;
    size_t start = 0;
};
Walk walkTo(std::string_view text, size_t offset) {
    Walk walk;
    for (;;) {
        const auto end = lineEnd(text, walk.start);
        const auto line = text.substr(walk.start, end - walk.start);
        walk.kind = classifyLine(line, walk.section);
        const auto next = nextLine(text, walk.start, end, walk.kind);
        if (next > offset || next > text.size()) return walk;
        if (walk.kind == LineKind::SectionHeader && isSectionHeader(trimBlanks(line)))
            walk.section = sectionOf(trimBlanks(line));
        walk.start = next;
    }
}

TEST(LineAt, FindsTheLineThatAWalkFromTheStartFinds) {
    const std::string_view text =
        "Version=2\r\n"
        "Early, 5,\r\n"
        "[ADS]\r\n"
        "* comment,\r\n"
        " [ADS] \r\n"
        "Keel, 10, _\r\n"
        "\tpage(x) |  \r\n"
        "[SKILLS]\r\n"
        "\r\n"
        "[Nothing]\r\n"
        "Oar, 5 // rare,\r\n"
        "[DISADS]\r\n"
        "Half, 5,\r\n"
        "\r\n"
        "<Sea>,\r\n"
        "[SKILLS]\r\n"
        "Rowing, P/E,\r\n"
        "   \r\n"
        "[PACKAGES]\r\n"
        "{Ferry,\r\n"
        "ADD=SK:Rowing,\r\n"
        "[MODS]\r\n"
        "{Crew _\r\n"
        "bound_\r\n"
        "[MODS]\r\n"
        "ADD=SK:Rowing\r\n"
        "[S\r\n"
        "Ends, _\r\n";
    for (size_t offset = 0; offset <= text.size(); ++offset) {
        if (offset > 0 && text[offset - 1] == '\r') continue;
        const auto walk = walkTo(text, offset);
        const auto section = sectionAt(text, offset);
        EXPECT_EQ(section, walk.section) << offset;
        const auto line = lineAt(text, offset, section);
        EXPECT_EQ(line.start, walk.start) << offset;
        EXPECT_EQ(line.kind, walk.kind) << offset;
    }
    const auto comment = text.find("//");
    EXPECT_FALSE(lineAt(text, comment, Section::Ads).isInComment);
    EXPECT_TRUE(lineAt(text, comment + 1, Section::Ads).isInComment);
    EXPECT_EQ(lineAt(text, comment, Section::Ads).end, comment);
}

}  // namespace
}  // namespace klt
