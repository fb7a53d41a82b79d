#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "text/Ascii.h"

// The types of items that lines of groups, bonuses and packages name, and the prefix of each.
namespace klt {

struct ItemType {
    std::string_view name;
    std::string_view prefix = {};
};

inline constexpr ItemType kAdvantageType{"Advantage", "AD:"}, kDisadvantageType{"Disadvantage", "DI:"},
    kPowerType{"Power", "PO:"}, kQuirkType{"Quirk", "QU:"}, kSkillType{"Skill", "SK:"},
    kSpellType{"Spell", "SP:"};

/// The items of the list that offers the types.
template <size_t Count>
constexpr std::array<std::string_view, Count> namesOf(const std::array<ItemType, Count>& types) {
    std::array<std::string_view, Count> names{};
    std::ranges::transform(types, names.begin(), &ItemType::name);
    return names;
}

/// The place of the type whose prefix `text` begins with, in any case; -1 where none does. With `letters`
/// only as many of the prefix count.
template <size_t Count>
constexpr int typeOf(const std::array<ItemType, Count>& types, std::string_view text, size_t letters = 3) {
    for (size_t i = 0; i < Count; ++i) {
        const auto prefix = types[i].prefix.substr(0, letters);
        if (!prefix.empty() && equalIgnoringAsciiCase(text.substr(0, letters), prefix))
            return static_cast<int>(i);
    }
    return -1;
}

}  // namespace klt
