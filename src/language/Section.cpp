#include "language/Section.h"

#include <algorithm>
#include <array>

#include "text/Ascii.h"

namespace klt {

namespace {

// Each name once, with blanks around.
constexpr auto kSectionList = [] {
    constexpr auto kLength = [] {
        size_t length = 1;
        for (size_t i = 1; i < kSectionNames.size(); ++i) length += kSectionNames[i].size() + 1;
        return length;
    }();
    std::array<char, kLength> list{};
    list.fill(' ');
    auto* start = list.begin() + 1;
    for (size_t i = 1; i < kSectionNames.size(); ++i)
        start = std::copy(kSectionNames[i].begin(), kSectionNames[i].end(), start) + 1;
    return list;
}();

}  // namespace

bool isSectionHeader(std::string_view trimmed) {
    const std::string_view list(kSectionList.data(), kSectionList.size());
    return findIgnoringAsciiCase(list, trimmed) != std::string_view::npos;
}

}  // namespace klt
