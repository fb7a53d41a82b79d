#pragma once

#include <array>
#include <string_view>

#include "language/Section.h"
#include "language/WordList.h"

// The words of the language that are no section, tag or @function. Each list stands in the order and spelling
// that the system holds; the spelling is what a word in another case is rewritten to.
namespace klt {

/// The special keywords of `gives(`.
inline constexpr WordList kGivesKeywords(std::to_array<std::string_view>({
    "%level",
    "%count",
    "MentalSkillPoints",
    "MSkillPoints",
    "PhysicalSkillPoints",
    "PSkillPoints",
    "SkillPoints",
    "MentalSpellPoints",
    "MSpellPoints",
    "PhysicalSpellPoints",
    "PSpellPoints",
    "STSkillPoints",
    "DXSkillPoints",
    "IQSkillPoints",
    "HTSkillPoints",
    "Skills",
    "Spells",
    "prereq",
}));

/// The special keywords of `needs(`.
inline constexpr WordList kNeedsKeywords(std::to_array<std::string_view>({
    "Colleges",
    "Other",
    "Spells",
}));

/// The special keywords of `upto(`.
inline constexpr WordList kUptoKeywords(std::to_array<std::string_view>({
    "Prereq",
    "LowPrereq",
    "Default",
    "InPlay",
}));

/// The keywords inside `@IF(`.
inline constexpr WordList kIfKeywords(std::to_array<std::string_view>({
    "THEN",
    "ELSE",
}));

/// The keywords that join the parts of a bonus.
inline constexpr WordList kBonusKeywords(std::to_array<std::string_view>({
    "To",
    "Upto",
}));

struct PrefixRow {
    std::string_view word;
    /// The section that it names; `Other` where it names none.
    Section section;
    /// Whether `ADD=` takes an item with it.
    bool isAdded = false;
    bool isInPackagesAlone = false;
};

inline constexpr auto kPrefixRows = std::to_array<PrefixRow>({
    {.word = "AD:", .section = Section::Ads, .isAdded = true},
    {.word = "ADS:", .section = Section::Ads, .isAdded = true},
    {.word = "DI:", .section = Section::Disads, .isAdded = true},
    {.word = "DISADS:", .section = Section::Disads, .isAdded = true},
    {.word = "QU:", .section = Section::Quirks, .isAdded = true},
    {.word = "QUIRKS:", .section = Section::Quirks, .isAdded = true},
    {.word = "PO:", .section = Section::Powers, .isAdded = true},
    {.word = "POWERS:", .section = Section::Powers, .isAdded = true},
    {.word = "SK:", .section = Section::Skills, .isAdded = true},
    {.word = "SK_RL:", .section = Section::Other},
    {.word = "SP:", .section = Section::Spells, .isAdded = true},
    {.word = "CL:", .section = Section::Other},
    {.word = "CO:", .section = Section::Other},
    {.word = "COLLEGE:", .section = Section::Other},
    {.word = "GR:", .section = Section::Other},
    {.word = "ST:", .section = Section::Stats, .isInPackagesAlone = true},
    {.word = "STAT:", .section = Section::Stats, .isInPackagesAlone = true},
    {.word = "PA:", .section = Section::Other, .isAdded = true, .isInPackagesAlone = true},
});
inline constexpr WordList kPrefixTags(wordsOf(kPrefixRows));

/// The row of a prefix tag, in any case; null for any other word.
constexpr const PrefixRow* findPrefixTag(std::string_view word) {
    const int i = kPrefixTags.find(word);
    return i < 0 ? nullptr : &kPrefixRows[static_cast<size_t>(i)];
}

inline constexpr WordList kSkillTypes(std::to_array<std::string_view>({
    "P/E",
    "P/A",
    "P/H",
    "M/E",
    "M/A",
    "M/H",
    "M/VH",
    "M/NL",
    "MA/A",
    "MA/H",
    "MA/VH",
    "S/H",
    "S/VH",
}));

/// The package words that begin a line, and behind them those inside one.
inline constexpr WordList kPackageWords(std::to_array<std::string_view>({
    "ADD=",
    "CREATE=",
    "MESSAGE=",
    "EMESSAGE=",
    ".WITH.",
    ".AND.",
    ".AT.",
}));

/// The unit behind a number of points, and the keyword that begins a paragraph of an `EMESSAGE=`.
inline constexpr std::string_view kPointsWord = "pts";
inline constexpr std::string_view kParagraphWord = "~P";

/// What `ADD=` takes without a prefix tag beside the attributes, and what is put behind an attribute to
/// adjust it.
inline constexpr std::string_view kRaceWord = "Race";
inline constexpr std::string_view kAdjustmentWord = "Adj";

inline constexpr WordList kYesNo(std::to_array<std::string_view>({
    "Yes",
    "No",
}));

inline constexpr auto kRoundings = std::to_array<std::string_view>({
    "Up",
    "Down",
});

inline constexpr WordList kAttributes(std::to_array<std::string_view>({
    "ST",
    "DX",
    "IQ",
    "HT",
}));

}  // namespace klt
