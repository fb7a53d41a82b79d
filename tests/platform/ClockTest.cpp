#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <clocale>
#include <ctime>

#include "support/Scratch.h"

using namespace klt;

TEST(Clock, LongDateInTheSystemsMonthName) {
    const struct {
        const char* locale;
        std::string date;
    } rows[] = {
        {"C", "March 7, 2001"},
        {"no such locale", "March 7, 2001"},
        {"de_DE.UTF-8", "März 7, 2001"},
        {"de_DE.ISO-8859-1", "März 7, 2001"},
    };
    for (const auto& row : rows) {
        const ScopedVariable all("LC_ALL", row.locale);
        const locale_t known = newlocale(LC_ALL_MASK, row.locale, nullptr);
        if (known != nullptr) freelocale(known);
        // A locale that this system lacks gives the names of "C".
        EXPECT_EQ(longDate({2001, 3, 7}), known != nullptr ? row.date : "March 7, 2001") << row.locale;
    }
    const ScopedVariable plain("LC_ALL", "C");
    EXPECT_EQ(longDate({1999, 12, 31}), "December 31, 1999");
}

TEST(Clock, TodayCanBeFixed) {
    {
        const FixedToday outer({2001, 3, 7});
        {
            const FixedToday inner({2002, 1, 1});
            EXPECT_EQ(today().year, 2002);
        }
        EXPECT_EQ(today().month, 3);
        EXPECT_EQ(today().day, 7);
    }
    // Midnight may pass between the two.
    const auto nowIs = [](const CalendarDay& day) {
        const std::time_t now = std::time(nullptr);
        const auto* local = std::localtime(&now);
        return day.year == local->tm_year + 1900 && day.month == local->tm_mon + 1 &&
               day.day == local->tm_mday;
    };
    EXPECT_TRUE(nowIs(today()) || nowIs(today()));
}
