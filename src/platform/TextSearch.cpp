#include "platform/TextSearch.h"

#include <cstring>

#include "platform/Unicode.h"

namespace klt {

namespace {

constexpr TextRange kNowhere{kNotFound, kNotFound};

// The start of the `count` characters that end at `end`.
size_t startOf(std::string_view text, size_t end, size_t count) {
    for (; count > 0; --count) end = previousCharacter(text, end);
    return end;
}

}  // namespace

TextSearch::TextSearch(std::string_view find, bool matchCase) : matchCase_(matchCase), find_(find) {
    if (matchCase) return;
    for (size_t place = 0; place < find.size();) {
        const auto character = characterAt(find, place);
        folded_.push_back(foldCase(character.code));
        place += character.length;
    }
    fallback_.assign(folded_.size() + 1, 0);
    for (size_t n = 1, matched = 0; n < folded_.size(); ++n) {
        while (matched > 0 && folded_[n] != folded_[matched]) matched = fallback_[matched];
        if (folded_[n] == folded_[matched]) ++matched;
        fallback_[n + 1] = matched;
    }
}

TextRange TextSearch::next(std::string_view text, Position from) const {
    if (find_.empty() || from > static_cast<Position>(text.size())) return kNowhere;
    const auto start = static_cast<size_t>(from < 0 ? 0 : from);
    return matchCase_ ? nextExact(text, start) : nextFolded(text, start);
}

TextRange TextSearch::nextExact(std::string_view text, size_t from) const {
    // Unlike string_view's own search this one stays linear where both repeat themselves.
    const void* found = memmem(text.data() + from, text.size() - from, find_.data(), find_.size());
    if (found == nullptr) return kNowhere;
    const Position start = static_cast<const char*>(found) - text.data();
    return {start, start + static_cast<Position>(find_.size())};
}

TextRange TextSearch::nextFolded(std::string_view text, size_t from) const {
    size_t matched = 0;
    for (size_t place = from; place < text.size();) {
        const auto character = characterAt(text, place);
        const char32_t code = foldCase(character.code);
        place += character.length;
        while (matched > 0 && code != folded_[matched]) matched = fallback_[matched];
        if (code == folded_[matched]) ++matched;
        if (matched == folded_.size())
            return {static_cast<Position>(startOf(text, place, matched)), static_cast<Position>(place)};
    }
    return kNowhere;
}

}  // namespace klt
