#include "app/documents/ModifiedStamp.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "support/MemoryTextArea.h"

using namespace klt;

namespace {

TEST(ModifiedStampTest, TodayGoesBehindTheFirstMarkUpToTheLinesEnd) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"no mark", "Version=2\r\n* Modified by me", "Version=2\r\n* Modified by me"},
        {"empty", "", ""},
        {"in a line", "a\r\n* Modified: January 1, 1999\r\nb", "a\r\n* Modified: March 7, 2001\r\nb"},
        {"first only", "* Modified: a\r\n* Modified: b", "* Modified: March 7, 2001\r\n* Modified: b"},
        {"no line end behind", "a\r\n* Modified: x", "a\r\n* Modified: March 7, 2001"},
        {"nothing behind", "* Modified: ", "* Modified: March 7, 2001"},
        {"nothing before the line end", "* Modified: \r\nb", "* Modified: March 7, 2001\r\nb"},
        {"no comment", "x* Modified: y // z\r\n", "x* Modified: March 7, 2001\r\n"},
        {"any case", "* MODIFIED: y", "* MODIFIED: March 7, 2001"},
        {"beyond ASCII", "\xC3\xA4* Modified: \xC3\xA4\r\n", "\xC3\xA4* Modified: March 7, 2001\r\n"},
    };
    const FixedToday day({2001, 3, 7});
    for (const auto& [name, text, expected] : rows) {
        MemoryTextArea area(text);
        stampModified(area);
        EXPECT_EQ(area.Text(), expected) << name;
    }
}

}  // namespace
