#include "app/documents/ModifiedStamp.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "support/MemoryTextArea.h"

using namespace klt;

namespace {

TEST(ModifiedStampTest, TodayGoesBehindTheFirstMarkUpToTheLinesEnd) {
    const std::tuple<const char*, const char*, const char*, bool> rows[] = {
        {"no mark", "Version=2\r\n* Modified by me", "Version=2\r\n* Modified by me", false},
        {"empty", "", "", false},
        {"in a line", "a\r\n* Modified: January 1, 1999\r\nb", "a\r\n* Modified: March 7, 2001\r\nb", false},
        {"first only", "* Modified: a\r\n* Modified: b", "* Modified: March 7, 2001\r\n* Modified: b", true},
        {"no line end behind", "a\r\n* Modified: x", "a\r\n* Modified: March 7, 2001", true},
        {"nothing behind", "* Modified: ", "* Modified: March 7, 2001", false},
        {"nothing before the line end", "* Modified: \r\nb", "* Modified: March 7, 2001\r\nb", false},
        {"no comment", "x* Modified: y // z\r\n", "x* Modified: March 7, 2001\r\n", true},
        {"any case", "* MODIFIED: y", "* MODIFIED: March 7, 2001", true},
        {"beyond ASCII", "\xC3\xA4* Modified: \xC3\xA4\r\n", "\xC3\xA4* Modified: March 7, 2001\r\n", true},
        {"long", "* Modified: by me on March 7, 2001, and by you", "* Modified: March 7, 2001", true},
        {"as long as a date", "* Modified: Wednesday, 17 September of 2001", "* Modified: March 7, 2001",
         true},
        {"a date", "* Modified: Wednesday, September 17, 2001", "* Modified: March 7, 2001", false},
    };
    const FixedToday day({2001, 3, 7});
    for (const auto& [name, text, expected, wasNoDate] : rows) {
        MemoryTextArea area(text);
        EXPECT_EQ(stampModified(area), wasNoDate) << name;
        EXPECT_EQ(area.Text(), expected) << name;
    }
}

}  // namespace
