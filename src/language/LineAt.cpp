#include "language/LineAt.h"

#include <algorithm>
#include <cstring>

#include "text/Ascii.h"

namespace klt {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Where the physical line of `offset` begins.
size_t lineStart(std::string_view text, size_t offset) {
    if (offset < kLineEnd.size()) return 0;
    const auto end = text.rfind(kLineEnd, offset - kLineEnd.size());
    return end == text.npos ? 0 : end + kLineEnd.size();
}

struct Walked {
    size_t start, end;
    LineKind kind;
};

/// Walks on from where a line begins for certain to the line that holds `offset`.
Walked walkTo(std::string_view text, size_t offset, Section section) {
    for (auto start = lineStartBefore(text, offset).value_or(0);;) {
        const auto end = lineEnd(text, start);
        const auto kind = classifyLine(text.substr(start, end - start), section);
        const auto next = nextLine(text, start, end, kind);
        if (next > offset || next > text.size()) return {start, end, kind};
        start = next;
    }
}

/// Whether a right section header stands in the physical line [start, end), and no line in front goes on
/// into it. Of the lines in front only a package header's kind hangs on the section, and a header of no
/// other section begins so.
bool isHeader(std::string_view text, size_t start, size_t end) {
    const auto line = trimBlanks(text.substr(start, end - start));
    if (!line.starts_with('[') || !isSectionHeader(line)) return false;
    return walkTo(text, start, Section::Packages).start == start;
}

size_t lastBracket(std::string_view text) {
    const void* hit = text.empty() ? nullptr : memrchr(text.data(), '[', text.size());
    return hit == nullptr ? text.npos : static_cast<size_t>(static_cast<const char*>(hit) - text.data());
}

}  // namespace

Section sectionAt(std::string_view text, size_t offset) {
    auto above = text.substr(0, lineStart(text, std::min(offset, text.size())));
    for (auto bracket = lastBracket(above); bracket != text.npos; bracket = lastBracket(above)) {
        const auto start = lineStart(text, bracket);
        const auto end = lineEnd(text, start);
        if (isHeader(text, start, end)) return sectionOf(trimBlanks(text.substr(start, end - start)));
        above = text.substr(0, start);
    }
    return Section::Other;
}

LineAt lineAt(std::string_view text, size_t offset, Section section) {
    offset = std::min(offset, text.size());
    const auto [start, end, kind] = walkTo(text, offset, section);
    if (kind == LineKind::PackageHeader) return {kind, start, packageHeader(text, start).end};
    if (kind != LineKind::Item) return {kind, start, end};
    const auto line = itemLine(text, start, EmptyTest::NextLine);
    return {kind, start, line.end, line.hasComment() && offset > line.end};
}

}  // namespace klt
