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

/// The prefix tags, and behind them the three of package lines.
inline constexpr WordList kPrefixTags(std::to_array<std::string_view>({
    "AD:",
    "ADS:",
    "DI:",
    "DISADS:",
    "QU:",
    "QUIRKS:",
    "PO:",
    "POWERS:",
    "SK:",
    "SK_RL:",
    "SP:",
    "CL:",
    "CO:",
    "COLLEGE:",
    "GR:",
    "ST:",
    "STAT:",
    "PA:",
}));
inline constexpr int kFirstPackagePrefix = 15;

/// The index in `kPrefixTags` of a prefix tag that is valid outside package lines, in any case, or -1.
constexpr int findPrefixTag(std::string_view word) {
    const int i = kPrefixTags.find(word);
    return i < kFirstPackagePrefix ? i : -1;
}

/// The section that a prefix tag (an index in `kPrefixTags`) names; `Other` where it names none.
Section sectionOfPrefix(int prefix);

/// Whether `ADD=` takes an item with this prefix tag (an index in `kPrefixTags`).
bool isAddPrefix(int prefix);

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
