#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/TextArea.h"

namespace klt {

/// A text to be found, made ready once and looked for many times. The time is linear in the searched text
/// whatever both hold; nothing ends at a NUL.
class TextSearch {
public:
    /// Without `matchCase` letters that differ in case alone are equal, beyond ASCII too.
    TextSearch(std::string_view find, bool matchCase);

    /// The first place at or behind `from` where the text is found, wholly inside `text`; its length may
    /// differ from the one looked for. {kNotFound, kNotFound} where there is none, as for an empty text.
    TextRange next(std::string_view text, Position from = 0) const;

private:
    TextRange nextExact(std::string_view text, size_t from) const;
    TextRange nextFolded(std::string_view text, size_t from) const;

    bool matchCase_;
    std::string find_;
    std::vector<char32_t> folded_;
    // fallback_[n]: how many characters still match when the one behind the first n does not.
    std::vector<size_t> fallback_;
};

}  // namespace klt
