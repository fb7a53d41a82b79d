#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace klt {

/// Any number that the text spells, in decimal form with blanks around it. Neither infinity nor anything
/// spelled in letters.
std::optional<double> realFrom(std::string_view text);

/// The number that a stored text spells: decimal, blanks around it, a fraction rounded to the even neighbour,
/// kept within 32 bits. Nothing for any other text.
std::optional<std::int32_t> numberFrom(std::string_view text);

/// How a truth is stored.
constexpr std::string_view truthText(bool truth) {
    return truth ? "True" : "False";
}

/// "True" or "False" in any case, or any number, 0 being false. Nothing for any other text.
std::optional<bool> truthFrom(std::string_view text);

}  // namespace klt
