#pragma once

#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "language/StyleCategory.h"
#include "text/TextArea.h"
#include "text/Unicode.h"

namespace klt {

/// A text with one style byte (a `StyleCategory`) for each of its bytes: what a pass reads and writes. Its
/// length never changes.
class StyledText {
public:
    /// Takes the text over, all of it in `Normal Text`.
    explicit StyledText(std::string text);
    /// Takes over both, `styles` being as long as the text.
    StyledText(std::string text, std::string styles);
    /// Works on letters that belong to somebody else, who keeps them where they are meanwhile.
    explicit StyledText(std::span<char> letters);
    StyledText(const StyledText&) = delete;
    StyledText& operator=(const StyledText&) = delete;

    std::string_view text() const { return {text_.data(), text_.size()}; }
    /// As long as the text.
    std::string_view styles() const { return styles_; }
    Position size() const { return static_cast<Position>(text_.size()); }
    StyleCategory categoryAt(Position position) const {
        return static_cast<StyleCategory>(styles_[static_cast<size_t>(position)]);
    }

    /// Lays a style on [start, end), cut to the text. Nothing happens unless start is less than end. A start
    /// inside a character moves back in front of it.
    void colour(Position start, Position end, StyleCategory style) {
        if (start < 0) start = 0;
        if (end > size()) end = size();
        if (start >= end) return;
        for (int back = 0; back < 3 && start > 0 && isContinuation(text_[static_cast<size_t>(start)]); ++back)
            --start;
        // Most runs are a sign or a word: too short for a call.
        constexpr Position kShort = 16;
        if (end - start > kShort) {
            std::memset(styles_.data() + start, static_cast<int>(style), static_cast<size_t>(end - start));
        } else {
            for (char* at = styles_.data() + start; at < styles_.data() + end; ++at)
                *at = static_cast<char>(style);
        }
    }

    /// Puts the letters of `text` over those from `start` where the two differ in the case of ASCII letters
    /// alone; any other text, and one that would reach beyond the end, is left as it is.
    void rewrite(Position start, std::string_view text);

    /// All in `Normal Text` again.
    void clearStyles() { styles_.assign(text_.size(), '\0'); }

    /// Give up what was taken over, or made, without a copy; the object is then done with.
    std::string takeText() { return std::move(own_); }
    std::string takeStyles() { return std::move(styles_); }

private:
    void makeStyles();

    std::string own_;
    std::span<char> text_;
    std::string styles_;
};

}  // namespace klt
