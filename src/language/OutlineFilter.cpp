#include "language/OutlineFilter.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <numeric>

#include "text/Ascii.h"
#include "text/TextSearch.h"
#include "text/Unicode.h"

namespace klt {
namespace {

std::string folded(std::string_view word) {
    std::string all;
    for (size_t offset = 0; offset < word.size();) {
        const auto character = characterAt(word, offset);
        appendCharacter(all, foldCase(character.code));
        offset += character.length;
    }
    return all;
}

/// A word, looked for in a hundred thousand short texts. Nearly all are ASCII, where a search costs less than
/// to get ready for one.
class Word {
public:
    explicit Word(std::string_view word)
        : folded_(folded(word)), isAscii_(isAscii(folded_)), search_(word, false) {}

    bool isIn(std::string_view text) const {
        if (isAscii_ && findIgnoringAsciiCase(text, folded_) != text.npos) return true;
        return !isAscii(text) && search_.next(text).start != kNotFound;
    }

private:
    std::string folded_;
    bool isAscii_;
    TextSearch search_;
};

std::vector<Word> wordsOf(std::string_view typed) {
    std::vector<Word> words;
    for (size_t start = typed.find_first_not_of(' '); start != typed.npos;) {
        const auto end = std::min(typed.find(' ', start), typed.size());
        words.emplace_back(typed.substr(start, end - start));
        start = typed.find_first_not_of(' ', end);
    }
    return words;
}

}  // namespace

OutlineFilter::OutlineFilter(std::string_view text) : text_(text), entries_(outlineOf(text)) {
    listAll();
}

void OutlineFilter::listAll() {
    rows_.resize(entries_.size());
    std::iota(rows_.begin(), rows_.end(), uint32_t{0});
}

void OutlineFilter::filter(std::string_view typed) {
    // What was typed on can only take rows away.
    if (!typed.starts_with(typed_)) listAll();
    typed_ = typed;
    const auto words = wordsOf(typed);
    if (words.empty()) return;
    std::erase_if(rows_, [&](uint32_t row) {
        return !std::ranges::all_of(words, [&](const Word& word) { return word.isIn(entries_[row].shown); });
    });
}

TextRange OutlineFilter::placeOf(size_t row) const {
    const auto& entry = (*this)[row];
    const auto start = startOf(entry);
    return {start, start + static_cast<Position>(entry.shown.size())};
}

std::optional<size_t> OutlineFilter::rowAt(Position position) const {
    const auto behind = std::ranges::upper_bound(rows_, position, {},
                                                 [this](uint32_t row) { return startOf(entries_[row]); });
    if (behind == rows_.begin()) return std::nullopt;
    return static_cast<size_t>(behind - rows_.begin()) - 1;
}

std::optional<Position> typedLine(std::string_view typed) {
    const auto digits = trimBlanks(typed);
    if (digits.empty() || !std::ranges::all_of(digits, isDigit)) return std::nullopt;
    Position line = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), line);
    return read.ec == std::errc() ? line : std::numeric_limits<Position>::max();
}

}  // namespace klt
