#pragma once

#include <string_view>
#include <vector>

#include "checker/ErrorReason.h"

namespace klt {

/// A position in a text as a person counts it: lines, and characters in the line, both from 1.
struct LineColumn {
    size_t line = 1;
    size_t column = 1;
    bool operator==(const LineColumn&) const = default;
};

/// One error run; `end` is behind it.
struct Finding {
    LineColumn start;
    LineColumn end;
    ErrorReason reason{};
    bool operator==(const Finding&) const = default;
};

/// The findings of a pass in the order of the text. A run that was laid twice for the same reason is one.
std::vector<Finding> findingsOf(std::string_view text, ErrorRuns runs);

}  // namespace klt
