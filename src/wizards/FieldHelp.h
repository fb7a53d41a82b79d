#pragma once

#include <string_view>

namespace klt {

/// What may stand in a field that is checked as `tag`, in a sentence or two; empty where nobody has written
/// it down.
std::string_view fieldHelp(std::string_view tag);

}  // namespace klt
