#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace klt {

/// A line of one of several texts that begins as a header and is none.
struct UnknownHeading {
    /// The index of its text.
    size_t text = 0;
    /// From 1.
    size_t line = 1;
    /// Without the blanks around it.
    std::string heading;
    bool operator==(const UnknownHeading&) const = default;
};
using UnknownHeadings = std::vector<UnknownHeading>;

}  // namespace klt
