#include "platform/TextSearch.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

#include "platform/Unicode.h"

namespace klt {
namespace {

constexpr TextRange kNowhere{kNotFound, kNotFound};

// A long s, the sign of kelvin and the Turkish letters i are spelled beyond ASCII and fold to these.
constexpr std::u32string_view kSpelledBeyondAscii = U"ski";

bool isLetter(char32_t code) {
    return (code | 0x20) >= 'a' && (code | 0x20) <= 'z';
}

bool isOfWord(char32_t code) {
    if (code < 0x80) return isLetter(code) || (code >= '0' && code <= '9') || code == '_';
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(code));
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_NO;
}

bool isInsideCharacter(std::string_view text, size_t place) {
    return place < text.size() && text[place] != '\n' && unitStart(text, place) != place;
}

/// The two bytes with which a folded ASCII character may be spelled.
std::array<char, 2> spellings(char32_t code, bool matchCase) {
    const auto byte = static_cast<char>(code);
    return {byte, !matchCase && isLetter(code) ? static_cast<char>(byte & ~0x20) : byte};
}

/// The places of one or two bytes in a text, in ascending order. Reads the text once for each.
class ByteScanner {
public:
    ByteScanner(std::string_view text, size_t from, std::array<char, 2> bytes)
        : text_(text),
          bytes_(bytes),
          next_{find(0, from), bytes[0] == bytes[1] ? text.npos : find(1, from)} {}

    /// The next place; npos at the end.
    size_t take() {
        const size_t which = next_[0] <= next_[1] ? 0 : 1;
        const size_t place = next_[which];
        if (place != text_.npos) next_[which] = find(which, place + 1);
        return place;
    }

private:
    size_t find(size_t which, size_t from) const { return text_.find(bytes_[which], from); }

    std::string_view text_;
    std::array<char, 2> bytes_;
    std::array<size_t, 2> next_;
};

}  // namespace

struct TextSearch::Area {
    std::string_view whole;
    std::string_view text;  // up to the end
    size_t from;
};

TextSearch::TextSearch(std::string_view find, bool matchCase, bool wholeWord)
    : matchCase_(matchCase), wholeWord_(wholeWord) {
    for (size_t place = 0; place < find.size();) {
        const auto character = characterAt(find, place);
        find_.push_back(comparable(character.code));
        place += character.length;
    }
    fallback_.assign(find_.size() + 1, 0);
    for (size_t n = 1, matched = 0; n < find_.size(); ++n) {
        while (matched > 0 && find_[n] != find_[matched]) matched = fallback_[matched];
        if (find_[n] == find_[matched]) ++matched;
        fallback_[n + 1] = matched;
    }
}

char32_t TextSearch::comparable(char32_t code) const {
    return matchCase_ ? code : foldCase(code);
}

TextRange TextSearch::next(std::string_view text, Position from, Position end) const {
    const auto size = static_cast<Position>(text.size());
    auto start = static_cast<size_t>(std::clamp<Position>(from, 0, size));
    auto stop = static_cast<size_t>(end < 0 ? size : std::min(end, size));
    if (isInsideCharacter(text, start)) start = unitEnd(text, start);
    if (isInsideCharacter(text, stop)) stop = unitStart(text, stop);
    if (find_.empty() || start >= stop) return kNowhere;
    const Area area = {text, text.substr(0, stop), start};
    const auto anchor = chooseAnchor(area);
    return anchor ? byAnchor(area, *anchor) : byAutomaton(area);
}

/// The character looked for that a sample of the text has least of, among those spelled in ASCII alone.
std::optional<size_t> TextSearch::chooseAnchor(const Area& area) const {
    constexpr size_t kSample = 16384;
    std::array<size_t, 256> counts{};
    const size_t middle = area.from + (area.text.size() - area.from) / 2;
    const size_t sample = std::max(area.from, middle - std::min(middle, kSample / 2));
    for (const char byte : area.text.substr(sample, kSample)) ++counts[static_cast<unsigned char>(byte)];

    std::optional<size_t> best;
    size_t fewest = 0;
    for (size_t n = 0; n < find_.size(); ++n) {
        if (find_[n] >= 0x80) continue;
        if (!matchCase_ && kSpelledBeyondAscii.find(find_[n]) != kSpelledBeyondAscii.npos) continue;
        const auto [one, other] = spellings(find_[n], matchCase_);
        const size_t count =
            counts[static_cast<unsigned char>(one)] + counts[static_cast<unsigned char>(other)];
        if (best && count >= fewest) continue;
        best = n;
        fewest = count;
    }
    return best;
}

TextRange TextSearch::byAnchor(const Area& area, size_t anchor) const {
    ByteScanner places(area.text, area.from, spellings(find_[anchor], matchCase_));
    size_t compared = 0;
    for (size_t place = places.take(); place != area.text.npos; place = places.take()) {
        const TextRange found = matchAround(area, place, anchor, compared);
        if (found.start != kNotFound && isAcceptable(area, found)) return found;
        // Where both repeat themselves, comparing around each place would be quadratic.
        if (compared > 8 * (place - area.from) + 4096) return byAutomaton(area);
    }
    return kNowhere;
}

TextRange TextSearch::matchAround(const Area& area, size_t place, size_t anchor, size_t& compared) const {
    size_t start = place;
    for (size_t n = anchor; n-- > 0;) {
        ++compared;
        if (start <= area.from) return kNowhere;
        start = previousCharacter(area.text, start);
        if (comparable(characterAt(area.text, start).code) != find_[n]) return kNowhere;
    }
    size_t end = place + 1;
    for (size_t n = anchor + 1; n < find_.size(); ++n) {
        ++compared;
        if (end >= area.text.size()) return kNowhere;
        const auto character = characterAt(area.text, end);
        if (comparable(character.code) != find_[n]) return kNowhere;
        end += character.length;
    }
    return {static_cast<Position>(start), static_cast<Position>(end)};
}

TextRange TextSearch::byAutomaton(const Area& area) const {
    std::vector<size_t> starts(find_.size());  // of the characters last seen, as a ring
    size_t matched = 0;
    size_t seen = 0;
    for (size_t place = area.from; place < area.text.size();) {
        const auto character = characterAt(area.text, place);
        const char32_t code = comparable(character.code);
        starts[seen++ % starts.size()] = place;
        place += character.length;
        while (matched > 0 && code != find_[matched]) matched = fallback_[matched];
        if (code == find_[matched]) ++matched;
        if (matched < find_.size()) continue;
        const TextRange found = {static_cast<Position>(starts[seen % starts.size()]),
                                 static_cast<Position>(place)};
        if (isAcceptable(area, found)) return found;
        matched = fallback_[matched];
    }
    return kNowhere;
}

bool TextSearch::isAcceptable(const Area& area, TextRange found) const {
    if (!wholeWord_) return true;
    const auto isInsideWord = [&](Position at) {
        const auto place = static_cast<size_t>(at);
        return place > 0 && place < area.whole.size() &&
               isOfWord(characterAt(area.whole, previousCharacter(area.whole, place)).code) &&
               isOfWord(characterAt(area.whole, place).code);
    };
    return !isInsideWord(found.start) && !isInsideWord(found.end);
}

}  // namespace klt
