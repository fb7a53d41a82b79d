#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "checker/ErrorReason.h"
#include "language/StyledText.h"
#include "text/Ascii.h"

namespace klt::fuzz {

inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// What holds of every text after every check.
inline void requireSound(std::string_view before, const StyledText& after, const ErrorRuns& errors) {
    require(equalIgnoringAsciiCase(before, after.text()), "only the case of letters changes");
    require(after.styles().size() == before.size(), "a style for each byte");
    for (const char style : after.styles())
        require(static_cast<size_t>(style) < kStyleCategoryNames.size(), "every style is a category");
    for (const auto& run : errors)
        require(run.start >= 0 && run.start < run.end && run.end <= after.size() &&
                    static_cast<size_t>(run.reason) < kErrorReasonCount,
                "error runs lie inside the text");
    for (const auto& run : errors)
        require(run.word == TextRange() ||
                    (run.word.start >= 0 && run.word.start < run.word.end && run.word.end <= after.size()),
                "the words that errors name lie inside the text");
}

}  // namespace klt::fuzz
