#include "language/Parentheses.h"

#include "language/LogicalLine.h"
#include "text/Ascii.h"

namespace klt {
namespace {

bool isParenthesis(std::string_view text, size_t at) {
    return at < text.size() && (text[at] == '(' || text[at] == ')');
}

LogicalLine logicalLine(std::string_view text, size_t start, Section section) {
    const size_t end = lineEnd(text, start);
    switch (classifyLine(text.substr(start, end - start), section)) {
        case LineKind::PackageHeader:
            return packageHeader(text, start);
        case LineKind::Item:
            return itemLine(text, start, EmptyTest::NextLine);
        default:
            return {.start = start, .end = end, .commentEnd = end, .next = end + 2};
    }
}

}  // namespace

std::optional<size_t> parenthesisAt(std::string_view text, size_t caret) {
    if (caret > 0 && isParenthesis(text, caret - 1)) return caret - 1;
    if (isParenthesis(text, caret)) return caret;
    return std::nullopt;
}

std::optional<ParenthesisPair> pairInField(const TextWindow& window, size_t own) {
    const auto size = static_cast<std::ptrdiff_t>(window.text.size());
    const char kind = window.text[own];
    const bool isOpening = kind == '(';
    const char other = isOpening ? ')' : '(';
    const std::ptrdiff_t step = isOpening ? 1 : -1;
    size_t depth = 0;
    for (auto at = static_cast<std::ptrdiff_t>(own); at >= 0 && at < size; at += step) {
        const char c = window.text[static_cast<size_t>(at)];
        if (c == kind) ++depth;
        if (c == other && --depth == 0) return ParenthesisPair{own, static_cast<size_t>(at)};
    }
    if (isOpening ? window.isCutBehind : window.isCutInFront) return std::nullopt;
    return ParenthesisPair{own, std::nullopt};
}

namespace {

std::optional<ParenthesisPair> pairInSection(const TextWindow& window, size_t own, Section section) {
    auto next = lineStartBefore(window.text, own);
    if (!next && window.isCutInFront) return std::nullopt;
    LogicalLine line{.next = next.value_or(0)};
    do line = logicalLine(window.text, line.next, section);
    while (line.next <= own);

    const bool isInComment = own >= line.end;
    const size_t start = isInComment ? line.end : line.start;
    const size_t end = isInComment ? line.commentEnd : line.end;
    // What goes on in the next line goes on beyond a cut as well.
    const TextWindow stretch{.text = window.text.substr(start, end - start),
                             .isCutBehind = window.isCutBehind && line.next >= window.text.size()};
    auto pair = pairInField(stretch, own - start);
    if (!pair) return pair;
    pair->own = own;
    if (pair->partner) *pair->partner += start;
    return pair;
}

/// That of the last header in front; none where it may stand in front of a cut.
std::optional<Section> sectionAt(const TextWindow& window, size_t place) {
    while (place > 0) {
        const size_t feed = window.text.substr(0, place).rfind('\n');
        const size_t start = feed == window.text.npos ? 0 : feed + 1;
        const auto line = trimBlanks(window.text.substr(start, lineEnd(window.text, start) - start));
        const bool isWhole = start > 0 || !window.isCutInFront;
        if (isWhole && line.starts_with('[') && isSectionHeader(line)) return sectionOf(line);
        place = start > 0 ? feed : 0;
    }
    return window.isCutInFront ? std::nullopt : std::optional(Section::Other);
}

}  // namespace

std::optional<ParenthesisPair> pairInLine(const TextWindow& window, size_t own) {
    const auto inPackages = pairInSection(window, own, Section::Packages);
    const auto elsewhere = pairInSection(window, own, Section::Other);
    if (inPackages == elsewhere) return inPackages;
    const auto section = sectionAt(window, own);
    if (!section) return std::nullopt;
    return *section == Section::Packages ? inPackages : elsewhere;
}

}  // namespace klt
