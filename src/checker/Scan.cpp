#include "checker/Scan.h"

#include <type_traits>

#include "language/Vocabulary.h"

namespace klt {

static_assert(!std::is_constructible_v<ScanPosition, Position> &&
                  !std::is_convertible_v<ScanPosition, Position>,
              "a position in the scanned text is none in the document");

void LineCheck::begin() {
    hasEnded = false;
    ranOff.clear();
    while (!frames.empty()) frames.pop();
    heldWords.clear();
    errorFrom_ = errorTo_ = 0;
}

void LineCheck::end() {
    for (const auto& [start, spelling] : rewrites_) target.rewrite(start, spelling);
    rewrites_.clear();
}

void LineCheck::colour(Position start, Position end, StyleCategory style) {
    constexpr Position kLongestCharacter = 4;
    if (start < errorTo_ && end > errorFrom_ && start < end)
        errorTo_ = std::max(errorFrom_, start - kLongestCharacter);
    target.colour(start, end, style);
}

void LineCheck::error(Position start, Position end, ErrorReason reason, TextRange word) {
    start = std::max<Position>(start, 0);
    if (start >= end) return;
    if (errors_ != nullptr) errors_->push_back({start, end, reason, word});
    if (start >= errorFrom_ && start < errorTo_) {
        if (end > errorTo_) target.colour(errorTo_, end, StyleCategory::SyntaxError);
        errorTo_ = std::max(errorTo_, end);
    } else {
        target.colour(start, end, StyleCategory::SyntaxError);
        errorFrom_ = start;
        errorTo_ = end;
    }
}

std::string_view Scan::between(ScanPosition from, ScanPosition to) const {
    from = std::max(from, kFirst);
    to = std::min(to, end());
    if (from >= to) return {};
    return text.substr(from.offset(), to.offset() - from.offset());
}

ScanPosition Scan::find(char c, ScanPosition from) const {
    const auto hit = text.find(c, std::max(from, kFirst).offset());
    return hit == text.npos ? end() : ScanPosition(hit);
}

ScanRange Scan::wordBefore(ScanPosition end) const {
    const auto all = between(kFirst, end);
    const auto before = all.find_last_of(",()");
    // What goes on a line belongs to no word.
    const auto start = all.find_first_not_of(" _|\t\r\n", before == all.npos ? 0 : before + 1);
    return {start == all.npos ? end : ScanPosition(start), end};
}

TextRange Scan::trimmed(ScanRange word) const {
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto all = between(word.start, word.end);
    const auto first = all.find_first_not_of(kBlanks);
    if (first == all.npos) return {};
    const auto start = inDocument(std::max(word.start, kFirst) + first);
    return {start, start + static_cast<Position>(all.find_last_not_of(kBlanks) + 1 - first)};
}

void Scan::recognise(ScanPosition end, std::string_view word, std::string_view spelling,
                     StyleCategory style) {
    const auto start = end - word.size();
    if (word != spelling) rewrite(start, spelling);
    colour(start, end, style);
}

ScanPosition Scan::firstGives() {
    if (!firstGives_) {
        const auto hit = findIgnoringAsciiCase(text, tagWord(Tag::Gives));
        firstGives_ = hit == text.npos ? kInFront : ScanPosition(hit);
    }
    return *firstGives_;
}

bool prefixTest(Scan& scan, ScanPosition i, WordBuffer& word) {
    word.append(scan.stretch(i, 1));
    const auto view = word.view();
    const auto* prefix = findPrefixTag(view);
    const bool isValid = prefix != nullptr && !prefix->isInPackagesAlone;
    if (isValid) scan.recognise(i + 1, view, prefix->word, StyleCategory::PrefixTags);
    word.clear();
    return isValid;
}

ScanPosition MarkErrorRun(Scan& scan, ScanPosition position, ScanPosition errorStart, char terminator,
                          ErrorReason reason, ScanRange word) {
    int depth = 0;
    auto stop = std::max(position, kFirst);
    for (; scan.isInside(stop); ++stop) {
        const char c = scan.text[stop.offset()];
        if (c == terminator && depth == 0) break;
        if (c == '(') ++depth;
        if (c == ')') --depth;
    }
    stop = std::min(stop, scan.end());
    word.end = std::min(word.end, stop);
    scan.error(errorStart, stop + 1, reason, word);
    scan.state.functionStack.pop();
    return stop;
}

}  // namespace klt
