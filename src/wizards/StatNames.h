#pragma once

#include <array>
#include <string_view>

namespace klt {

/// The stats that the host knows, as the combos of skills and stats list them. Others may be typed.
inline constexpr auto kStatNames = std::to_array<std::string_view>({
    "ST",
    "DX",
    "IQ",
    "HT",
    "Will",
    "Fatigue",
    "Hit Points",
    "Speed",
    "Move",
    "Dodge",
    "Vision",
    "Hearing",
    "Taste/Smell",
    "Swim",
    "No Encumbrance",
    "Light Encumbrance",
    "Medium Encumbrance",
    "Heavy Encumbrance",
    "X-Heavy Encumbrance",
    "PD",
    "DR",
    "Parry",
    "Block",
    "No Encumbrance Move Reduction",
    "Light Encumbrance Move Reduction",
    "Medium Encumbrance Move Reduction",
    "Heavy Encumbrance Move Reduction",
    "X-Heavy Encumbrance Move Reduction",
});

}  // namespace klt
