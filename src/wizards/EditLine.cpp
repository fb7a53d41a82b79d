#include "wizards/EditLine.h"

#include <algorithm>

#include "language/EditedLine.h"
#include "language/LogicalLine.h"
#include "text/Ascii.h"
#include "wizards/Categories.h"

namespace klt {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
// The first two lines of a new document.
constexpr Position kHeadLength = 82;
// With its brackets.
constexpr size_t kLongestName = std::ranges::max(kSectionNames, {}, &std::string_view::size).size();

size_t at(Position place) {
    return static_cast<size_t>(place);
}

/// Takes the section of that name, brackets included; false where there is none.
bool takeSection(EditLineResult& result, std::string_view name) {
    result.section = sectionOf(name);
    if (result.section == Section::Other) return false;
    const bool isAuthor = result.section == Section::Author;
    result.kind = isAuthor ? EditLineResult::Kind::Author : EditLineResult::Kind::Item;
    return true;
}

/// Where the comment begins, blanks in front of it included; the text's end without one.
size_t commentStart(std::string_view line) {
    long open = 0;
    for (size_t i = 0; i + 1 < line.size(); ++i) {
        open += line[i] == '(' ? 1 : line[i] == ')' ? -1 : 0;
        if (open != 0 || line.substr(i, 2) != "//") continue;
        while (i > 0 && (line[i - 1] == ' ' || line[i - 1] == '\t')) --i;
        return i;
    }
    return line.size();
}

}  // namespace

EditLineResult EditLine(TextArea& document) {
    document.UpTo(kLineEnd, false);
    EditLineResult result{.EditLineStart = document.SelStart()};
    const auto text = document.Text();
    auto before = text.substr(0, at(result.EditLineStart));
    for (auto bracket = before.rfind('['); bracket != before.npos; bracket = before.rfind('[')) {
        const auto name = text.substr(bracket, kLongestName);
        const auto end = name.find(']');
        if (end != name.npos && takeSection(result, name.substr(0, end + 1))) {
            document.Select(static_cast<Position>(bracket) + 1, static_cast<Position>(end) - 1);
            return result;
        }
        before = before.substr(0, bracket);
    }
    document.Select(0, kHeadLength);
    takeSection(result, '[' + document.SelText() + ']');
    return result;
}

std::string_view subsectionAbove(const TextArea& document, Position place, bool isWholeHeading) {
    const auto text = document.Text();
    auto before = text.substr(0, at(place));
    auto heading = before.rfind('<');
    while (heading != before.npos && !startsLine(text, heading)) {
        before = before.substr(0, heading);
        heading = before.rfind('<');
    }
    if (heading == before.npos) return {};
    const auto name = text.substr(heading + 1);
    if (!isWholeHeading) return name.substr(0, name.find('>'));
    const auto end = lineEnd(name, 0);
    return name.substr(0, end > 0 ? end - 1 : 0);
}

EditedItem takeItem(TextArea& document, TextRange range) {
    document.Select(range.start, range.end - range.start);
    return {.place = document.Track(range), .oldText = document.SelText()};
}

EditedItem LoadSingleLine(TextArea& document, Position place) {
    auto logical = GetLogicalLine(document.Text(), place);
    if (document.Slice(logical.range.start, logical.range.end).ends_with(kLineEnd))
        logical.range.end -= static_cast<Position>(kLineEnd.size());

    EditedItem item = takeItem(document, logical.range);
    const auto comment = commentStart(logical.text);
    item.comment = logical.text.substr(comment);
    logical.text.resize(comment);
    item.line = joinItemLine(logical.text);
    return item;
}

}  // namespace klt
