#include "app/documents/TextView.h"

#include <algorithm>

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

}  // namespace klt
