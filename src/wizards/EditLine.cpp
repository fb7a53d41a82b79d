#include "wizards/EditLine.h"

#include "language/EditedLine.h"
#include "language/LogicalLine.h"
#include "text/Ascii.h"
#include "wizards/Categories.h"

namespace klt {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kAuthor = "AUTHOR";
// The first two lines of a new document.
constexpr Position kHeadLength = 82;
// No name is longer.
constexpr size_t kLongestName = 10;

size_t at(Position place) {
    return static_cast<size_t>(place);
}

bool isEditable(EditLineResult& result, std::string_view name) {
    result.section = editSection(name);
    if (result.section != nullptr) {
        result.kind = EditLineResult::Kind::Item;
    } else if (equalIgnoringAsciiCase(name, kAuthor)) {
        result.kind = EditLineResult::Kind::Author;
    }
    return result.kind != EditLineResult::Kind::Head;
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
        const auto name = text.substr(bracket + 1, kLongestName);
        const auto length = name.find(']');
        if (length != name.npos && isEditable(result, name.substr(0, length))) {
            document.Select(static_cast<Position>(bracket) + 1, static_cast<Position>(length));
            return result;
        }
        before = before.substr(0, bracket);
    }
    document.Select(0, kHeadLength);
    isEditable(result, document.SelText());
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

EditedItem LoadSingleLine(TextArea& document, Position place) {
    auto logical = GetLogicalLine(document.Text(), place);
    document.Select(logical.range.start, logical.range.end - logical.range.start);
    if (document.SelText().ends_with(kLineEnd))
        document.SetSelLength(document.SelLength() - static_cast<Position>(kLineEnd.size()));

    EditedItem item{.start = document.SelStart(), .oldText = document.SelText()};
    const auto comment = commentStart(logical.text);
    item.comment = logical.text.substr(comment);
    logical.text.resize(comment);
    item.line = joinItemLine(logical.text);
    return item;
}

}  // namespace klt
