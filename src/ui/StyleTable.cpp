#include "ui/StyleTable.h"

#include "settings/Conversions.h"

namespace klt {

namespace {

// The first fifteen are of the console's sixteen colours, the last four are our own.
constexpr std::array<Rgb, 19> kColours = {{
    {0, 0, 0},       {0, 0, 128},   {0, 128, 0},     {0, 128, 128},   {128, 0, 0},
    {128, 0, 128},   {128, 128, 0}, {192, 192, 192}, {128, 128, 128}, {0, 0, 255},
    {0, 255, 0},     {0, 255, 255}, {255, 0, 0},     {255, 0, 255},   {255, 255, 0},
    {128, 128, 255}, {255, 128, 0}, {0, 128, 255},   {128, 0, 255},
}};

constexpr std::array kReadingOrder = {
    StyleCategory::Comments,
    StyleCategory::Functions,
    StyleCategory::Keywords,
    StyleCategory::MathCharacters,
    StyleCategory::NormalText,
    StyleCategory::PackageHeaders,
    StyleCategory::PackageItemsAndItemTags,
    StyleCategory::PrefixTags,
    StyleCategory::Sections,
    StyleCategory::SpecialKeywords,
    StyleCategory::SubSections,
    StyleCategory::SyntaxError,
    StyleCategory::VersionInformation,
};
static_assert(kReadingOrder.size() == kStyleCategoryNames.size());

}  // namespace

const std::array<StyleDefault, kStyleCategoryNames.size()> kStyleDefaults = {{
    {0, false, false, "Anything not in other categories."},
    {1, false, false, "@FAC, @FIX, @IF, @INT, @LOG, @MAX, @MIN, @NLOG, @POWER, @SQR, @ETC (@Oops... 8-D)."},
    {5, false, false, "THEN, ELSE, To, Upto."},
    {8, false, false,
     "%level, %count, MentalSkillPoints, MSkillPoints, PhysicalSkillPoints, PSkillPoints, SkillPoints, "
     "MentalSpellPoints, MSpellPoints, PhysicalSpellPoints, PSpellPoints, STSkillPoints, DXSkillPoints, "
     "IQSkillPoints, HTSkillPoints, Skills, Spells, prereq, Colleges, Other, Spells, Prereq, LowPrereq, "
     "Default, InPlay."},
    {15, false, false, "+ - * / < > ="},
    {2, false, false, "Anything after * (only in the beginning of a line) or //."},
    {16, false, false, "Anything in the packages section, on its own line, that is surrounded by {}."},
    {17, false, false, "Anything on its own line surrounded by []."},
    {13, false, false, "Anything on its own line surrounded by <>."},
    {4, false, false,
     "Item tags: gives, mods, needs, notes, page, upto, cat, default, stat, type, duration, castingcost, "
     "time, basevalue, step, maxscore, minscore, up, down, symbol, doubleinplay, display, round.\r\n"
     "Package items: ADD=, CREATE=, MESSAGE=, EMESSAGE=, .WITH. .AND. .AT."},
    {3, false, false,
     "In packages, PA:, ST:, STAT:.\r\n"
     "AD:, ADS:, DI:, DISADS:, QU:, QUIRKS:, PO:, POWERS:, SK:, SK_RL:, SP:, CL:, CO:, COLLEGE:, GR:"},
    {12, false, false, "Things in which you (or someone else) screwed up in the data file."},
    {17, true, false,
     "This is the Version=2 thing. It is PROTECTED against editing. Give up, you will NOT be able to edit "
     "it."},
}};

Rgb ColourIndexToRgb(int index) {
    if (index < 0 || static_cast<size_t>(index) >= kColours.size()) return {};
    return kColours[static_cast<size_t>(index)];
}

StyleTable::StyleTable() {
    for (size_t i = 0; i < styles_.size(); ++i) {
        const auto& row = kStyleDefaults[i];
        styles_[i] = {ColourIndexToRgb(row.colourIndex), row.bold, row.italic};
    }
}

StoredStyle readStyle(CRegSettings& settings, StyleCategory category) {
    const auto section = styleCategoryName(category);
    const auto& row = kStyleDefaults[static_cast<size_t>(category)];
    const auto truth = [&](std::string_view key, bool otherwise) {
        return truthFrom(settings.GetSetting(section, key, "")).value_or(otherwise);
    };
    return {numberFrom(settings.GetSetting(section, "Color", "")).value_or(row.colourIndex),
            truth("Bold", row.bold), truth("Italic", row.italic)};
}

StyleTable LoadStyles(CRegSettings& settings) {
    StyleTable table;
    for (const auto category : kReadingOrder) table.set(category, readStyle(settings, category).style());
    return table;
}

}  // namespace klt
