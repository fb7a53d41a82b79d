#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <clocale>
#include <ctime>

#include "support/Scratch.h"

using namespace klt;

TEST(Clock, LongDateInTheSystemsMonthName) {
    for (const auto& [name, date] : {std::pair("C", "March 7, 2001"),
                                     {"no such locale", "March 7, 2001"},
                                     {"de_DE.UTF-8", "März 7, 2001"},
                                     {"de_DE.ISO-8859-1", "März 7, 2001"}}) {
        const ScopedVariable all("LC_ALL", name);
        const locale_t known = newlocale(LC_ALL_MASK, name, nullptr);
        // A locale that this system lacks gives the names of "C".
        EXPECT_EQ(longDate({2001, 3, 7}), known != nullptr ? date : "March 7, 2001") << name;
        if (known != nullptr) freelocale(known);
    }
    const ScopedVariable plain("LC_ALL", "C");
    EXPECT_EQ(longDate({1999, 12, 31}), "December 31, 1999");
}

TEST(Clock, TodayCanBeFixed) {
    {
        const FixedToday outer({2001, 3, 7});
        EXPECT_EQ((FixedToday({2002, 1, 1}), today().year), 2002);
        EXPECT_EQ(today().month, 3);
        EXPECT_EQ(today().day, 7);
    }
    const auto isNow = [](const CalendarDay& day) {
        const std::time_t now = std::time(nullptr);
        const auto* local = std::localtime(&now);
        return std::array{day.year - 1900, day.month - 1, day.day} ==
               std::array{local->tm_year, local->tm_mon, local->tm_mday};
    };
    EXPECT_TRUE(isNow(today()) || isNow(today())) << "midnight may pass between the two";
}
