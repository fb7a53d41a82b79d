#pragma once

#include <optional>

#include "text/TextArea.h"
#include "text/Unicode.h"

namespace klt {

/// The length of a text in characters, kept up to date edit by edit, so that a key at the end of a long text
/// does not count it anew.
class CharacterTally {
public:
    /// The text is another one: it is counted at the next question.
    void forget() { count_.reset(); }

    /// The bytes of [place, place + length) are about to go.
    void textDeleted(const TextArea& text, Position place, Position length) {
        if (!count_) return;
        settle(text);
        *count_ -= countIn(text, {place, place + length});
    }
    /// Bytes are about to come in, which can't be seen yet.
    void textInserted(const TextArea& text, Position place, Position length) {
        if (!count_) return;
        settle(text);
        uncounted_ = {place, place + length};
    }

    /// `gap` divides the text in two parts that are asked for one by one.
    Position count(const TextArea& text, Position gap) {
        if (!count_) {
            count_ = countIn(text, {0, gap}) + countIn(text, {gap, text.Length()});
            uncounted_ = {};
        }
        settle(text);
        return *count_;
    }

private:
    static Position countIn(const TextArea& text, TextRange range) {
        return static_cast<Position>(countCharacters(text.Slice(range.start, range.end)));
    }
    void settle(const TextArea& text) {
        *count_ += countIn(text, uncounted_);
        uncounted_ = {};
    }

    std::optional<Position> count_;
    TextRange uncounted_;
};

}  // namespace klt
