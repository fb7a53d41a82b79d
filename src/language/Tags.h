#pragma once

#include <array>
#include <string_view>

#include "language/Section.h"
#include "language/WordList.h"

namespace klt {

/// The tags, in the order of their list, behind `None`; at the end the names that only fields have.
enum class Tag : unsigned char {
    None,
    Gives,
    Mods,
    Needs,
    Notes,
    Page,
    Upto,
    Cat,
    Default,
    Stat,
    Type,
    Duration,
    CastingCost,
    Time,
    BaseValue,
    Step,
    MaxScore,
    MinScore,
    Up,
    Down,
    Symbol,
    DoubleInPlay,
    Display,
    Round,
    Cost,
    Value,
};

/// The tag words, with the parenthesis that counts as part of them.
inline constexpr WordList kTagWords(std::to_array<std::string_view>({
    "gives(",    "mods(", "needs(",    "notes(",       "page(",         "upto(",      "cat(",   "default(",
    "stat(",     "type(", "duration(", "castingcost(", "time(",         "basevalue(", "step(",  "maxscore(",
    "minscore(", "up(",   "down(",     "symbol(",      "doubleinplay(", "display(",   "round(",
}));

/// No tag words of a data line: the names under which a field holds a cost or the value of a modifier.
inline constexpr auto kFieldOnlyTags = std::to_array<std::string_view>({
    "cost(",
    "value(",
});

constexpr std::string_view tagWord(Tag tag) {
    const auto i = static_cast<size_t>(tag);
    if (i == 0) return {};
    return i <= kTagWords.words().size() ? kTagWords.words()[i - 1]
                                         : kFieldOnlyTags[i - 1 - kTagWords.words().size()];
}

/// The tag of that word, in any case; `None` if there is no such one. "cost(" and "value(" are none.
constexpr Tag tagOf(std::string_view word) {
    return static_cast<Tag>(kTagWords.find(word) + 1);
}

/// The tag of a field, which is told by its word exactly: a tag word, "cost(" or "value(". `None` for others.
Tag fieldTag(std::string_view word);

/// Whether a tag may stand in a section's lines. In `[PACKAGES]` all may, in `[AUTHOR]`, `[BONUS]`,
/// `[GROUPS]` and under no known section none.
bool IsTagValid(Tag tag, Section section);

}  // namespace klt
