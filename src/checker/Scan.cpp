#include "checker/Scan.h"

#include "language/Vocabulary.h"

namespace klt {

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

void LineCheck::error(Position start, Position end, ErrorReason reason) {
    start = std::max<Position>(start, 0);
    if (start >= end) return;
    if (errors_ != nullptr) errors_->push_back({start, end, reason});
    if (start >= errorFrom_ && start < errorTo_) {
        if (end > errorTo_) target.colour(errorTo_, end, StyleCategory::SyntaxError);
        errorTo_ = std::max(errorTo_, end);
    } else {
        target.colour(start, end, StyleCategory::SyntaxError);
        errorFrom_ = start;
        errorTo_ = end;
    }
}

std::string_view Scan::span(Place from, Place to) const {
    from = std::max<Place>(from, 1);
    to = std::min(to, length() + 1);
    if (from >= to) return {};
    return text.substr(static_cast<size_t>(from - 1), static_cast<size_t>(to - from));
}

Place Scan::find(char c, Place from) const {
    const auto hit = text.find(c, static_cast<size_t>(std::max<Place>(from, 1) - 1));
    return hit == std::string_view::npos ? length() + 1 : static_cast<Place>(hit) + 1;
}

void Scan::recognise(Position end, std::string_view word, std::string_view spelling, StyleCategory style) {
    const auto start = end - static_cast<Position>(word.size());
    if (word != spelling) line.rewrite(start, spelling);
    colour(start, end, style);
}

bool prefixTest(Scan& scan, Place i, WordBuffer& word) {
    word.append(scan.span(i, i + 1));
    const auto view = word.view();
    const int prefix = findPrefixTag(view);
    if (prefix >= 0) scan.recognise(scan.lineStart + i, view, kPrefixTags[prefix], StyleCategory::PrefixTags);
    word.clear();
    return prefix >= 0;
}

Place MarkErrorRun(Scan& scan, Place position, Position errorStart, char terminator, ErrorReason reason) {
    Place depth = 0;
    Place stop = std::max<Place>(position, 1);
    for (; stop <= scan.length(); ++stop) {
        const char c = scan.text[static_cast<size_t>(stop - 1)];
        if (c == terminator && depth == 0) break;
        if (c == '(') ++depth;
        if (c == ')') --depth;
    }
    stop = std::min(stop, scan.length() + 1);
    scan.error(errorStart, scan.lineStart + stop, reason);
    scan.state.functionStack.pop();
    return stop;
}

}  // namespace klt
