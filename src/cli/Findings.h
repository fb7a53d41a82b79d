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
    /// The run and the word that the reason speaks of, in whole characters, and the offset at which the line
    /// begins in which the run starts.
    TextRange run;
    TextRange word;
    size_t lineStart = 0;

    /// `text` must be the one that the finding is of.
    std::string_view wordIn(std::string_view text) const {
        return text.substr(static_cast<size_t>(word.start), static_cast<size_t>(word.end - word.start));
    }
};

/// The findings of a pass in the order of the text. A run that was laid twice for the same reason is one.
std::vector<Finding> findingsOf(std::string_view text, ErrorRuns runs);

}  // namespace klt
