#pragma once

#include <utility>
#include <vector>

#include "text/TextArea.h"

namespace klt {

/// The stretches of text that came in during an edit, with the styles that they are to take. They move with
/// the text until then.
class InsertedText {
public:
    struct Piece {
        TextRange range;
        StyleByte style = 0;
    };

    void textInserted(Position place, Position length, StyleByte style);
    void textDeleted(Position place, Position length);
    /// The pieces so far; none are left.
    std::vector<Piece> take() { return std::exchange(pieces_, {}); }

private:
    std::vector<Piece> pieces_;
};

}  // namespace klt
