#include "language/Section.h"

#include "text/Ascii.h"

namespace klt {

namespace {

constexpr std::string_view kSectionList =
    " [AUTHOR] [ADS] [DISADS] [QUIRKS] [POWERS] [BONUS] [STATS] [SKILLS] [SPELLS] [GROUPS] [MODS] "
    "[PACKAGES] ";

static_assert(
    [] {
        size_t length = 1;
        for (size_t i = 1; i < kSectionNames.size(); ++i) length += kSectionNames[i].size() + 1;
        return length == kSectionList.size();
    }(),
    "the list holds each name once, with blanks around");

}  // namespace

bool isSectionHeader(std::string_view trimmed) {
    return findIgnoringAsciiCase(kSectionList, trimmed) != std::string_view::npos;
}

}  // namespace klt
