#pragma once

#include <array>
#include <string_view>

#include "text/Ascii.h"

namespace klt {

/// What a section's lines are checked as. `Other` stands for every text that names none of the twelve, the
/// empty one before the first header included.
enum class Section : unsigned char {
    Other,
    Author,
    Ads,
    Disads,
    Quirks,
    Powers,
    Bonus,
    Stats,
    Skills,
    Spells,
    Groups,
    Mods,
    Packages,
};

/// In the order of `Section`; `Other` has no name.
inline constexpr std::array<std::string_view, 13> kSectionNames = {
    "",        "[AUTHOR]", "[ADS]",    "[DISADS]", "[QUIRKS]", "[POWERS]",   "[BONUS]",
    "[STATS]", "[SKILLS]", "[SPELLS]", "[GROUPS]", "[MODS]",   "[PACKAGES]",
};

constexpr std::string_view sectionName(Section section) {
    return kSectionNames[static_cast<unsigned char>(section)];
}

/// The section of that name, brackets included, in any case; `Other` for any other text.
constexpr Section sectionOf(std::string_view name) {
    for (size_t i = 1; i < kSectionNames.size(); ++i)
        if (equalIgnoringAsciiCase(kSectionNames[i], name)) return static_cast<Section>(i);
    return Section::Other;
}

/// Whether a trimmed line that begins with `[` is a section header: it occurs, in any case, somewhere in the
/// list of the names. So "[ADS] [DISADS]" is one, and so is "[S", though neither names a section.
bool isSectionHeader(std::string_view trimmed);

}  // namespace klt
