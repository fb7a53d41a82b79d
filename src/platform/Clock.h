#pragma once

#include <optional>
#include <string>

namespace klt {

struct CalendarDay {
    int year = 1970;
    /// From 1.
    int month = 1;
    int day = 1;
};

/// Today in the local time zone, or the day of a `FixedToday`.
CalendarDay today();

/// The day as "March 7, 2001", with the system's month name, in UTF-8.
std::string longDate(const CalendarDay& day);

/// While one stands, it is always that day.
class FixedToday {
public:
    explicit FixedToday(const CalendarDay& day);
    ~FixedToday();
    FixedToday(const FixedToday&) = delete;
    FixedToday& operator=(const FixedToday&) = delete;

private:
    std::optional<CalendarDay> before_;
};

}  // namespace klt
