#pragma once

#include <string>
#include <string_view>

#include "checker/DocumentPass.h"
#include "text/LineEnds.h"

namespace klt::test {

/// One letter for each category, in their order.
inline constexpr std::string_view kMarks = "-fksm*hSgtp!v";

inline std::string markRun(std::string_view before, std::string_view after, StyleCategory style) {
    std::string run(after);
    if (before != after) run.append("←").append(before);
    if (style == StyleCategory::NormalText && before == after) return run;
    return std::string("«").append(1, kMarks[static_cast<size_t>(style)]).append(" ").append(run).append("»");
}

/// The text after a check with each run as "«k To←to»": the letter of its style, the text as it is, and
/// behind the arrow the text as it was, if a rewrite changed it. Text in `Normal Text` stands bare. Line ends
/// are LF.
inline std::string marked(std::string_view before, const StyledText& after) {
    std::string result;
    const auto text = after.text();
    for (size_t i = 0; i < text.size();) {
        const auto style = after.styles()[i];
        const bool isNormal = style == '\0';
        // Bare text is told word by word, so that a rewrite in it stands out.
        const auto divides = [](char c) { return c == ' ' || c == '\r' || c == '\n'; };
        const auto ends = [&](size_t j) {
            return after.styles()[j] != style || (isNormal && (divides(text[j]) || divides(text[j - 1])));
        };
        size_t j = i + 1;
        while (j < text.size() && !ends(j)) ++j;
        result += markRun(before.substr(i, j - i), text.substr(i, j - i), static_cast<StyleCategory>(style));
        i = j;
    }
    std::erase(result, '\r');
    return result;
}

/// What `check` makes of a text.
template <typename Check>
std::string markedAfter(std::string_view lines, Check check) {
    const auto text = withCrLf(lines);
    StyledText styled(text);
    check(styled);
    return marked(text, styled);
}

inline std::string checkedDocument(std::string_view lines, CheckerState& state, ErrorRuns* errors = nullptr) {
    return markedAfter(lines, [&](StyledText& text) { CheckDocument(text, state, nullptr, errors); });
}

}  // namespace klt::test
