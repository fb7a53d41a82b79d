#pragma once

#include <array>
#include <string_view>

namespace klt {

/// The thirteen categories of text, in the order in which the options list them.
enum class StyleCategory : unsigned char {
    NormalText,
    Functions,
    Keywords,
    SpecialKeywords,
    MathCharacters,
    Comments,
    PackageHeaders,
    Sections,
    SubSections,
    PackageItemsAndItemTags,
    PrefixTags,
    SyntaxError,
    VersionInformation,
};

inline constexpr std::array<std::string_view, 13> kStyleCategoryNames = {
    "Normal Text",
    "@Functions",
    "Keywords",
    "Special Keywords",
    "Math Characters",
    "Comments",
    "Package Headers",
    "Sections",
    "SubSections",
    "Package Items and Item Tags",
    "Prefix Tags",
    "Syntax Error",
    "Version Information",
};

constexpr std::string_view styleCategoryName(StyleCategory category) {
    return kStyleCategoryNames[static_cast<unsigned char>(category)];
}

}  // namespace klt
