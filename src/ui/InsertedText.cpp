#include "ui/InsertedText.h"

#include <algorithm>

namespace klt {

void InsertedText::textInserted(Position place, Position length, StyleByte style) {
    for (Piece& piece : pieces_) {
        if (place <= piece.range.start) piece.range.start += length;
        if (place < piece.range.end) piece.range.end += length;
    }
    pieces_.push_back({{place, place + length}, style});
}

void InsertedText::textDeleted(Position place, Position length) {
    const auto moved = [&](Position at) { return at - std::clamp<Position>(at - place, 0, length); };
    for (Piece& piece : pieces_) piece.range = {moved(piece.range.start), moved(piece.range.end)};
    std::erase_if(pieces_, [](const Piece& piece) { return piece.range.start == piece.range.end; });
}

}  // namespace klt
