#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "text/TextArea.h"

namespace klt {

/// A text to be found, made ready once and looked for many times. The time is linear in the searched text
/// whatever both hold; nothing ends at a NUL.
class TextSearch {
public:
    /// Without `matchCase` letters that differ in case alone are equal, beyond ASCII too. With `wholeWord`
    /// no word of letters, digits and "_" may go on over either end.
    TextSearch(std::string_view find, bool matchCase, bool wholeWord = false);

    /// Where the text is first found, wholly inside [from, end) (`end` -1: the end of the text); its length
    /// may differ from the one looked for. {kNotFound, kNotFound} where there is none, as for an empty text.
    TextRange next(std::string_view text, Position from = 0, Position end = -1) const;

    /// Calls `found` for each time it is found in [from, end), in ascending order, every one looked for
    /// behind the one before.
    void each(std::string_view text, Position from, Position end,
              const std::function<void(TextRange)>& found) const;

private:
    struct Area;
    struct Anchor;

    char32_t comparable(char32_t code) const;
    bool isSpelledInAscii(char32_t code) const;
    Area areaOf(std::string_view text, Position from, Position end) const;
    std::optional<Anchor> chooseAnchor(const Area& area, bool inAscii) const;
    TextRange search(const Area& area) const;
    TextRange byAnchor(const Area& area, const Anchor& anchor) const;
    TextRange matchAround(const Area& area, size_t offset, size_t anchor, size_t& compared) const;
    TextRange byAutomaton(const Area& area) const;
    bool isAcceptable(const Area& area, TextRange found) const;

    bool matchCase_;
    bool wholeWord_;
    std::vector<char32_t> find_;
    // fallback_[n]: how many characters still match when the one behind the first n does not.
    std::vector<size_t> fallback_;
};

}  // namespace klt
