#include "text/TextArea.h"

#include <algorithm>

#include "text/LineEnds.h"
#include "text/TextSearch.h"

namespace klt {
namespace {

/// The styles of `withCrLf(text)`: both halves of a line end take the style of the half that was there.
std::string stylesWithCrLf(std::string_view text, std::string_view styles) {
    std::string result;
    for (size_t at = 0; at < text.size(); ++at) {
        const bool isWhole = text.substr(at).starts_with("\r\n");
        const bool isLone = !isWhole && (text[at] == '\r' || text[at] == '\n');
        result += styles[at];
        if (isWhole) ++at;
        if (isWhole || isLone) result += styles[at];
    }
    return result;
}

}  // namespace

void TextArea::SetText(std::string_view text) {
    if (hasOnlyCrLf(text)) return replaceAll(text);
    replaceAll(withCrLf(text));
}

bool TextArea::ReplaceText(std::string_view text) {
    if (hasOnlyCrLf(text)) return replaceWhole(text);
    return replaceWhole(withCrLf(text));
}

bool TextArea::SetSelText(std::string_view text) {
    if (hasOnlyCrLf(text)) return replaceSelection(text, {});
    return replaceSelection(withCrLf(text), {});
}

bool TextArea::SetSelTextStyled(std::string_view text, std::string_view styles) {
    if (styles.size() != text.size()) return false;
    if (hasOnlyCrLf(text)) return replaceSelection(text, styles);
    return replaceSelection(withCrLf(text), stylesWithCrLf(text, styles));
}

std::string TextArea::SelText() const {
    return std::string(Slice(SelStart(), SelStart() + SelLength()));
}

Position TextArea::Find(std::string_view text, Position start, Position end, FindOptions options) {
    // What begins or ends inside CR LF can't be selected.
    if (tearsLineEnd(text)) return kNotFound;
    const TextSearch search(text, options.matchCase, options.wholeWord);
    const TextRange found = search.next(Text(), start, end);
    if (found.start != kNotFound) Select(found.start, found.end - found.start);
    return found.start;
}

void TextArea::UpTo(std::string_view set, bool forward) {
    const auto text = Text();
    if (forward) {
        const auto found = text.find_first_of(set, static_cast<size_t>(SelStart() + SelLength()));
        SetSelStart(static_cast<Position>(found == text.npos ? text.size() : found));
        return;
    }
    const auto found = text.substr(0, static_cast<size_t>(SelStart())).find_last_of(set);
    SetSelStart(found == text.npos ? 0 : static_cast<Position>(found) + 1);
}

void TextArea::Span(std::string_view set, bool forward, bool negate) {
    const auto text = Text();
    const Position start = SelStart(), end = start + SelLength();
    if (forward) {
        const auto from = static_cast<size_t>(end);
        const auto found = negate ? text.find_first_of(set, from) : text.find_first_not_of(set, from);
        Select(start, static_cast<Position>(found == text.npos ? text.size() : found) - start);
        return;
    }
    const auto before = text.substr(0, static_cast<size_t>(start));
    const auto found = negate ? before.find_last_of(set) : before.find_last_not_of(set);
    const Position newStart = found == text.npos ? 0 : static_cast<Position>(found) + 1;
    Select(newStart, end - newStart);
}

}  // namespace klt
