#include "wizards/EditedBlock.h"

#include <algorithm>

#include "language/EditedLine.h"
#include "language/LogicalLine.h"
#include "text/Ascii.h"

namespace klt {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

enum class Mark : unsigned char { None, Subsection, Package, Section };

/// What the line that starts at `start` heads.
Mark markAt(std::string_view text, size_t start) {
    if (text.substr(start, 1) == "{") return Mark::Package;
    const auto first = text.find_first_not_of(" \t", start);
    if (first == text.npos) return Mark::None;
    return text[first] == '<' ? Mark::Subsection : text[first] == '[' ? Mark::Section : Mark::None;
}

size_t lineStart(std::string_view text, size_t place) {
    const auto end = place < kLineEnd.size() ? text.npos : text.rfind(kLineEnd, place - kLineEnd.size());
    return end == text.npos ? 0 : end + kLineEnd.size();
}

/// The start of the line behind the one that holds `place`; the text's end behind the last one.
size_t nextLine(std::string_view text, size_t place) {
    return std::min(text.size(), lineEnd(text, place) + kLineEnd.size());
}

/// The nearest line at or above `place`, which a line starts, that is one of the marks that `stops` names;
/// the text's start without one.
template <typename Stops>
size_t markedLine(std::string_view text, size_t place, Stops stops) {
    while (place > 0 && !stops(markAt(text, place))) place = lineStart(text, place - 1);
    return place;
}

/// What stands from `start`, which a line starts, to the next mark.
size_t blockEnd(std::string_view text, size_t start) {
    size_t end = start;
    while (end < text.size() && markAt(text, end) == Mark::None) end = nextLine(text, end);
    const auto block = text.substr(start, end - start);
    return block.ends_with(kLineEnd) ? end - kLineEnd.size() : end;
}

TextRange rangeOf(size_t start, size_t end) {
    return {static_cast<Position>(start), static_cast<Position>(end)};
}

/// The line from which a caret's heading is looked for: that of a section belongs to the section above.
size_t firstLine(std::string_view text, Position place) {
    const auto start = lineStart(text, static_cast<size_t>(place));
    return start > 0 && markAt(text, start) == Mark::Section ? lineStart(text, start - 1) : start;
}

/// The brace that closes a header: nothing or a comment stands behind it; else the last one.
size_t closingBrace(std::string_view header) {
    for (auto brace = header.find('}'); brace != header.npos; brace = header.find('}', brace + 1)) {
        const auto behind = trimBlanks(header.substr(brace + 1));
        if (behind.empty() || behind.starts_with("//")) return brace;
    }
    return header.rfind('}');
}

/// Puts what stands between the braces of a header into the item, and what stands behind them aside.
void takeHeader(EditedItem& item, std::string_view header) {
    header.remove_prefix(1);
    const auto brace = closingBrace(header);
    item.line = header.substr(0, brace);
    if (brace != header.npos) item.comment = header.substr(brace + 1);
}

}  // namespace

EditedItem LoadBlock(TextArea& document, Position place) {
    const auto text = document.Text();
    const auto heading =
        markedLine(text, firstLine(text, place), [](Mark mark) { return mark != Mark::None; });
    const auto start = markAt(text, heading) == Mark::None ? heading : nextLine(text, heading);
    EditedItem item = takeItem(document, rangeOf(start, blockEnd(text, start)));
    item.block = item.oldText;
    return item;
}

std::optional<EditedItem> LoadPackage(TextArea& document, Position place) {
    const auto text = document.Text();
    const auto start = markedLine(text, firstLine(text, place),
                                  [](Mark mark) { return mark == Mark::Package || mark == Mark::Section; });
    if (markAt(text, start) != Mark::Package) return std::nullopt;
    const auto header = GetLogicalLine(text, static_cast<Position>(start));
    const auto block = static_cast<size_t>(header.range.end);
    const auto end = blockEnd(text, block);
    const bool isBare = block == end && text.substr(0, end).ends_with(kLineEnd);
    EditedItem item = takeItem(document, rangeOf(start, isBare ? end - kLineEnd.size() : end));
    item.block = document.Slice(header.range.end, static_cast<Position>(end));
    takeHeader(item, joinItemLine(header.text));
    return item;
}

}  // namespace klt
