#pragma once

#include <string_view>

namespace klt {

/// Calls `use` with each of the names that single blanks separate, until it returns true; whether it did.
template <typename Use>
constexpr bool anyName(std::string_view names, Use use) {
    while (!names.empty()) {
        const auto blank = names.find(' ');
        if (use(names.substr(0, blank))) return true;
        if (blank == names.npos) break;
        names.remove_prefix(blank + 1);
    }
    return false;
}

template <typename Use>
constexpr void forEachName(std::string_view names, Use use) {
    anyName(names, [&use](std::string_view name) {
        use(name);
        return false;
    });
}

constexpr bool holdsName(std::string_view names, std::string_view name) {
    return anyName(names, [name](std::string_view each) { return each == name; });
}

}  // namespace klt
