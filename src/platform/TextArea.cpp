#include "platform/TextArea.h"

namespace klt {

std::string TextArea::SelText() const {
    return std::string(Text().substr(static_cast<size_t>(SelStart()), static_cast<size_t>(SelLength())));
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
