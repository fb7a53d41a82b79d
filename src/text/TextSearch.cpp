#include "text/TextSearch.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>

#include "text/BytePair.h"
#include "text/Unicode.h"

namespace klt {
namespace {

constexpr TextRange kNowhere{kNotFound, kNotFound};

// A long s, the sign of kelvin and the Turkish letters i are spelled beyond ASCII and fold to these.
constexpr std::u32string_view kSpelledBeyondAscii = U"ski";

bool isLetter(char32_t code) {
    return (code | 0x20) >= 'a' && (code | 0x20) <= 'z';
}

/// How a folded ASCII character may be spelled in ASCII.
ByteSpelling spellingOf(char32_t code, bool matchCase) {
    const auto byte = static_cast<unsigned char>(code);
    return !matchCase && isLetter(code) ? ByteSpelling{byte, 0x20} : ByteSpelling{byte, 0};
}

bool isOfWord(char32_t code) {
    if (code < 0x80) return isLetter(code) || (code >= '0' && code <= '9') || code == '_';
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(code));
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_NO;
}

bool isInsideCharacter(std::string_view text, size_t offset) {
    return offset < text.size() && text[offset] != '\n' && unitStart(text, offset) != offset;
}

}  // namespace

/// The characters, one or two neighbours, by whose bytes it is found where to compare.
struct TextSearch::Anchor {
    size_t at = 0;  // of the first one, in the text looked for
    BytePair bytes;
};

/// What is searched, and how, so that going on from a match costs nothing anew.
struct TextSearch::Area {
    std::string_view whole;
    std::string_view text;  // up to the end
    size_t from = 0;
    std::optional<Anchor> anchor;
    // From `from` on up to here all is ASCII, where another anchor serves.
    size_t asciiEnd = 0;
    std::optional<Anchor> asciiAnchor;
};

TextSearch::TextSearch(std::string_view find, bool matchCase, bool wholeWord)
    : matchCase_(matchCase), wholeWord_(wholeWord) {
    for (size_t offset = 0; offset < find.size();) {
        const auto character = characterAt(find, offset);
        find_.push_back(comparable(character.code));
        offset += character.length;
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

bool TextSearch::isSpelledInAscii(char32_t code) const {
    return code < 0x80 && (matchCase_ || kSpelledBeyondAscii.find(code) == kSpelledBeyondAscii.npos);
}

TextSearch::Area TextSearch::areaOf(std::string_view text, Position from, Position end) const {
    const auto size = static_cast<Position>(text.size());
    auto start = static_cast<size_t>(std::clamp<Position>(from, 0, size));
    auto stop = static_cast<size_t>(end < 0 ? size : std::min(end, size));
    if (isInsideCharacter(text, start)) start = unitEnd(text, start);
    if (isInsideCharacter(text, stop)) stop = unitStart(text, stop);
    Area area = {.whole = text,
                 .text = text.substr(0, stop),
                 .from = std::min(start, stop),
                 .anchor = {},
                 .asciiEnd = 0,
                 .asciiAnchor = {}};
    area.anchor = chooseAnchor(area, false);
    if (area.anchor) return area;
    area.asciiEnd = area.from + asciiLength(area.text, area.from);
    area.asciiAnchor = chooseAnchor(area, true);
    return area;
}

TextRange TextSearch::next(std::string_view text, Position from, Position end) const {
    return find_.empty() ? kNowhere : search(areaOf(text, from, end));
}

void TextSearch::each(std::string_view text, Position from, Position end,
                      const std::function<void(TextRange)>& found) const {
    if (find_.empty()) return;
    Area area = areaOf(text, from, end);
    for (auto match = search(area); match.start != kNotFound; match = search(area)) {
        found(match);
        area.from = static_cast<size_t>(match.end);
    }
}

/// The neighbours, or else the character, of which a sample of the text has least.
std::optional<TextSearch::Anchor> TextSearch::chooseAnchor(const Area& area, bool inAscii) const {
    constexpr size_t kSample = 16384;
    std::array<size_t, 256> counts{};
    const size_t middle = area.from + (area.text.size() - area.from) / 2;
    const size_t sample = std::max(area.from, middle - std::min(middle, kSample / 2));
    for (const char byte : area.text.substr(sample, kSample)) ++counts[static_cast<unsigned char>(byte)];

    const auto serves = [&](size_t n) {
        return n < find_.size() && (inAscii ? find_[n] < 0x80 : isSpelledInAscii(find_[n]));
    };
    const auto countOf = [&](const ByteSpelling& spelling) {
        return counts[spelling.value] + counts[spelling.value ^ spelling.ignored];
    };
    std::optional<Anchor> best;
    size_t fewest = 0;
    for (size_t n = 0; n < find_.size(); ++n) {
        if (!serves(n)) continue;
        Anchor anchor = {n, {spellingOf(find_[n], matchCase_), {}}};
        size_t score = countOf(anchor.bytes.first);
        if (serves(n + 1)) {
            anchor.bytes.second = spellingOf(find_[n + 1], matchCase_);
            score *= countOf(*anchor.bytes.second);
        } else {
            score *= kSample;
        }
        if (best && score >= fewest) continue;
        best = anchor;
        fewest = score;
    }
    return best;
}

TextRange TextSearch::search(const Area& area) const {
    if (area.anchor) return byAnchor(area, *area.anchor);
    if (!area.asciiAnchor || area.asciiEnd <= area.from) return byAutomaton(area);
    Area part = area;
    part.text = area.text.substr(0, area.asciiEnd);
    if (const TextRange found = byAnchor(part, *area.asciiAnchor); found.start != kNotFound) return found;
    // What begins in ASCII may go on beyond it.
    part.text = area.text;
    part.from = area.asciiEnd - std::min(find_.size() - 1, area.asciiEnd - area.from);
    return byAutomaton(part);
}

TextRange TextSearch::byAnchor(const Area& area, const Anchor& anchor) const {
    size_t compared = 0;
    for (size_t offset = area.from;; ++offset) {
        offset = findBytePair(area.text, offset, anchor.bytes);
        if (offset == area.text.npos) return kNowhere;
        const TextRange found = matchAround(area, offset, anchor.at, compared);
        if (found.start != kNotFound && isAcceptable(area, found)) return found;
        // Where both repeat themselves, comparing around each hit would be quadratic.
        if (compared > 8 * (offset - area.from) + 4096) return byAutomaton(area);
    }
}

TextRange TextSearch::matchAround(const Area& area, size_t offset, size_t anchor, size_t& compared) const {
    size_t start = offset;
    for (size_t n = anchor; n-- > 0;) {
        ++compared;
        if (start <= area.from) return kNowhere;
        start = previousCharacter(area.text, start);
        if (comparable(characterAt(area.text, start).code) != find_[n]) return kNowhere;
    }
    size_t end = offset + 1;
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
    for (size_t offset = area.from; offset < area.text.size();) {
        const auto character = characterAt(area.text, offset);
        const char32_t code = comparable(character.code);
        starts[seen++ % starts.size()] = offset;
        offset += character.length;
        while (matched > 0 && code != find_[matched]) matched = fallback_[matched];
        if (code == find_[matched]) ++matched;
        if (matched < find_.size()) continue;
        const TextRange found = {static_cast<Position>(starts[seen % starts.size()]),
                                 static_cast<Position>(offset)};
        if (isAcceptable(area, found)) return found;
        matched = fallback_[matched];
    }
    return kNowhere;
}

bool TextSearch::isAcceptable(const Area& area, TextRange found) const {
    if (!wholeWord_) return true;
    const auto isInsideWord = [&](Position at) {
        const auto offset = static_cast<size_t>(at);
        return offset > 0 && offset < area.whole.size() &&
               isOfWord(characterAt(area.whole, previousCharacter(area.whole, offset)).code) &&
               isOfWord(characterAt(area.whole, offset).code);
    };
    return !isInsideWord(found.start) && !isInsideWord(found.end);
}

}  // namespace klt
