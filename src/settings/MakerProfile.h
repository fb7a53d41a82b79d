#pragma once

#include <string_view>

namespace klt {

/// The author profile of the program's maker, known by its exact name.
inline constexpr std::string_view kMakerName = "Grey Harbor";
inline constexpr std::string_view kMakerFirstAddress = "grey.harbor@example.org";
/// The second address that the first correction brought, and the one that holds now.
inline constexpr std::string_view kMakerFormerAddress = "greyharbor@example.org";
inline constexpr std::string_view kMakerAddress = "greyharbor@example.net";

}  // namespace klt
