#include "language/LogicalLine.h"

#include <algorithm>
#include <cstring>

#include "text/Ascii.h"

namespace klt {

namespace {

constexpr size_t kLineEnd = 2;

// The last character that is no blank in [start, end), or NUL.
char lastTrimmed(std::string_view text, size_t start, size_t end) {
    while (end > start && text[end - 1] == ' ') --end;
    return end > start ? text[end - 1] : '\0';
}

size_t findComment(std::string_view text, size_t start, size_t end) {
    const char* const data = text.data();
    while (start + 1 < end) {
        const void* hit = std::memchr(data + start, '/', end - start - 1);
        if (hit == nullptr) break;
        start = static_cast<size_t>(static_cast<const char*>(hit) - data);
        if (data[start + 1] == '/') return start;
        ++start;
    }
    return end;
}

bool joins(char last) {
    return last == '_' || last == ',' || last == '|';
}

}  // namespace

size_t lineEnd(std::string_view text, size_t start) {
    const char* const data = text.data();
    for (auto from = start; from < text.size();) {
        const void* hit = std::memchr(data + from, '\n', text.size() - from);
        if (hit == nullptr) break;
        const auto offset = static_cast<size_t>(static_cast<const char*>(hit) - data);
        if (offset > start && data[offset - 1] == '\r') return offset - 1;
        from = offset + 1;
    }
    return text.size();
}

LineKind classifyLine(std::string_view line, Section section) {
    const auto trimmed = trimBlanks(line);
    if (trimmed.empty()) return LineKind::Blank;
    switch (trimmed.front()) {
        case '*':
            return LineKind::Comment;
        case '[':
            return LineKind::SectionHeader;
        case '<':
            return LineKind::SubsectionHeader;
        default:
            break;
    }
    if (equalIgnoringAsciiCase(line, kVersionLine)) return LineKind::Version;
    if (line.front() == '{' && section == Section::Packages) return LineKind::PackageHeader;
    return LineKind::Item;
}

LogicalLine itemLine(std::string_view text, size_t start, EmptyTest emptyTest) {
    LogicalLine line{.start = start};
    const auto firstEnd = lineEnd(text, start);
    line.end = findComment(text, start, firstEnd);
    line.commentEnd = firstEnd;
    line.next = firstEnd + kLineEnd;
    if (line.end < firstEnd) return line;

    while (joins(lastTrimmed(text, start, line.end)) && line.next <= text.size()) {
        const auto following = lineEnd(text, line.next);
        const bool isTested = emptyTest == EmptyTest::NextLine || line.lines == 1;
        const bool isEmpty = isTested && following == line.next;
        if (!isEmpty) line.end = line.commentEnd = following;
        line.next = following + kLineEnd;
        ++line.lines;
        if (isEmpty) break;
    }
    return line;
}

LogicalLine packageHeader(std::string_view text, size_t start) {
    LogicalLine line{.start = start, .end = lineEnd(text, start)};
    line.next = line.end + kLineEnd;
    while (lastTrimmed(text, start, line.end) == '_' && line.next <= text.size()) {
        line.end = lineEnd(text, line.next);
        line.next = line.end + kLineEnd;
        ++line.lines;
    }
    line.commentEnd = line.end;
    return line;
}

size_t nextLine(std::string_view text, size_t start, size_t end, LineKind kind) {
    // Most lines are one line, whatever else they hold.
    if (!joins(lastTrimmed(text, start, end))) return end + kLineEnd;
    if (kind == LineKind::Item) return itemLine(text, start, EmptyTest::NextLine).next;
    if (kind == LineKind::PackageHeader) return packageHeader(text, start).next;
    return end + kLineEnd;
}

std::optional<size_t> lineStartBefore(std::string_view text, size_t place) {
    while (place > 0) {
        const size_t feed = text.substr(0, place).rfind('\n');
        if (feed == text.npos) break;
        place = feed;
        if (feed == 0 || text[feed - 1] != '\r') continue;
        const char last = lastTrimmed(text, 0, feed - 1);
        // Blanks alone may be the rest of a line.
        if (last != '\0' && !joins(last)) return feed + 1;
    }
    return std::nullopt;
}

size_t longestLine(std::string_view text) {
    size_t longest = 0;
    for (size_t start = 0, place = 0; place <= text.size();) {
        const auto end = lineEnd(text, place);
        longest = std::max(longest, end - start);
        if (!joins(lastTrimmed(text, place, end))) start = end + kLineEnd;
        place = end + kLineEnd;
    }
    return longest;
}

}  // namespace klt
