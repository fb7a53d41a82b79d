#include "app/documents/TextView.h"

#include <algorithm>

#include "app/documents/frmKLTEditor.h"
#include "platform/MemoryRoom.h"

namespace klt {

TextView::Place TextView::placeOf(const TextArea& text, Position position) {
    const Position line = text.GetLineFromChar(position);
    return {line, position - text.LineIndex(line)};
}

Position TextView::positionOf(const TextArea& text, Place place) {
    const Position line = std::min(place.line, text.LineCount() - 1);
    return text.LineIndex(line) + std::min(place.column, text.LineLength(line));
}

TextView::TextView(const TextArea& text)
    : start_(placeOf(text, text.SelStart())),
      end_(placeOf(text, text.SelStart() + text.SelLength())),
      firstVisible_(text.FirstVisibleLine()) {}

void TextView::restoreIn(TextArea& text) const {
    const Position start = positionOf(text, start_);
    text.Select(start, positionOf(text, end_) - start);
    restoreScrollIn(text);
}

KeptText::KeptText(const frmKLTEditor& document)
    : encoding_(document.encoding), view_(*document.RichTextBox1) {
    const RichTextBox& box = *document.RichTextBox1;
    requireRoom(2 * static_cast<size_t>(box.Length()));
    text_ = box.Text();
    styles_ = box.Styles();
    protected_ = box.ProtectedRuns();
}

void KeptText::bringBackTo(frmKLTEditor& document) const {
    RichTextBox& box = *document.RichTextBox1;
    if (!box.ReplaceText(text_)) return;
    box.SetStyles(styles_, protected_);
    document.encoding = encoding_;
    view_.restoreIn(box);
}

}  // namespace klt
