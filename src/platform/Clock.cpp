#include "platform/Clock.h"

#include <clocale>
#include <ctime>
#include <cwchar>

#include "text/Unicode.h"

namespace klt {

namespace {

std::optional<CalendarDay> fixedToday;

std::string monthName(int month) {
    const locale_t named = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
    const locale_t used = named != nullptr ? named : newlocale(LC_ALL_MASK, "C", nullptr);
    std::tm moment{};
    moment.tm_mon = month - 1;
    moment.tm_mday = 1;
    // Wide, for then the name is Unicode whatever the locale's own encoding is.
    wchar_t wide[100];
    const size_t length = wcsftime_l(wide, std::size(wide), L"%B", &moment, used);
    freelocale(used);
    std::string name;
    for (size_t i = 0; i < length; ++i) appendCharacter(name, static_cast<char32_t>(wide[i]));
    return name;
}

}  // namespace

CalendarDay today() {
    if (fixedToday) return *fixedToday;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::string longDate(const CalendarDay& day) {
    return monthName(day.month) + " " + std::to_string(day.day) + ", " + std::to_string(day.year);
}

FixedToday::FixedToday(const CalendarDay& day) : before_(fixedToday) {
    fixedToday = day;
}

FixedToday::~FixedToday() {
    fixedToday = before_;
}

}  // namespace klt
