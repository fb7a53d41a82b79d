#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace klt {

/// A stretch of a text; where it is cut, there is more of the text beyond that end.
struct TextWindow {
    std::string_view text = {};
    bool isCutInFront = false;
    bool isCutBehind = false;
};

/// A parenthesis and the one that belongs to it, as offsets.
struct ParenthesisPair {
    size_t own = 0;
    std::optional<size_t> partner;
    bool operator==(const ParenthesisPair&) const = default;
};

/// The parenthesis right in front of a caret, else the one right behind it; none where neither is one.
std::optional<size_t> parenthesisAt(std::string_view text, size_t caret);

/// The parenthesis at `own` with its partner in the text, which is one line. None where the partner may lie
/// beyond a cut.
std::optional<ParenthesisPair> pairInField(const TextWindow& window, size_t own);

/// The same within the logical line that holds `own`, whose `//` comment is a line of its own here. None also
/// where it hangs on the section, as with a line that begins with a brace, and that begins beyond a cut.
std::optional<ParenthesisPair> pairInLine(const TextWindow& window, size_t own);

}  // namespace klt
