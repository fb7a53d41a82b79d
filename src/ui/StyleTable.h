#pragma once

#include <array>

#include "language/StyleCategory.h"
#include "settings/CRegSettings.h"

namespace klt {

struct Rgb {
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;
    bool operator==(const Rgb&) const = default;
};

/// The colour of an index as the settings store it, 0 to 18; black for every other.
Rgb ColourIndexToRgb(int index);

/// How a category of text looks.
struct Style {
    Rgb colour;
    bool bold = false;
    bool italic = false;
    bool operator==(const Style&) const = default;
};

/// What a category has where the settings are silent, and the text that explains it.
struct StyleDefault {
    int colourIndex;
    bool bold;
    bool italic;
    const char* description;
};

/// In the order of `StyleCategory`.
extern const std::array<StyleDefault, kStyleCategoryNames.size()> kStyleDefaults;

/// The style of each category.
class StyleTable {
public:
    /// The defaults.
    StyleTable();

    const Style& operator[](StyleCategory category) const {
        return styles_[static_cast<unsigned char>(category)];
    }
    void set(StyleCategory category, const Style& style) {
        styles_[static_cast<unsigned char>(category)] = style;
    }
    bool operator==(const StyleTable&) const = default;

private:
    std::array<Style, kStyleCategoryNames.size()> styles_;
};

/// What a category has where it is stored, else its default; the colour as an index, which may be none of the
/// table.
struct StoredStyle {
    int colourIndex = 0;
    bool bold = false;
    bool italic = false;

    Style style() const { return {ColourIndexToRgb(colourIndex), bold, italic}; }
};
StoredStyle readStyle(CRegSettings& settings, StyleCategory category);

/// Reads all categories from the settings, each from the section of its name; a key that is absent, or holds
/// no number or truth value, gives the default.
StyleTable LoadStyles(CRegSettings& settings);

}  // namespace klt
