// What marks a stretch of text beside its style: indicators, which lie below the letters and touch none of
// their colours.

#include <algorithm>
#include <array>
#include <utility>

#include "language/Parentheses.h"
#include "ui/RichTextBox.h"

namespace klt {
namespace {

// How far from the caret the partner is looked for. Mostly it is near; a line may be as long as the text, and
// a move has to stay quick.
constexpr std::array<Position, 2> kReaches = {4096, 1 << 20};

}  // namespace

void RichTextBox::setUpMarks() {
    const struct {
        Position mark;
        QColor colour;
        Position fill, outline;  // how little shines through, of 255
    } rows[] = {
        {kPairMark, QColor(0, 96, 255), 50, 170},
        {kLoneMark, QColor(255, 128, 0), 110, 220},
    };
    for (const auto& row : rows) {
        send(SCI_INDICSETSTYLE, row.mark, INDIC_STRAIGHTBOX);
        send(SCI_INDICSETUNDER, row.mark, 1);
        send(SCI_INDICSETALPHA, row.mark, row.fill);
        send(SCI_INDICSETOUTLINEALPHA, row.mark, row.outline);
        SendScintilla(SCI_INDICSETFORE, static_cast<unsigned long>(row.mark), row.colour);
    }
}

void RichTextBox::markParentheses() {
    // Of many fields the one that shows a caret; a document keeps its marks while another window is used.
    const bool hasCaret = kind_ == Kind::Document || hasFocus();
    const auto pair = hasCaret ? parenthesesAtCaret() : std::nullopt;
    if (std::exchange(areParenthesesMarked_, pair.has_value())) {
        for (const Position mark : {kPairMark, kLoneMark}) {
            send(SCI_SETINDICATORCURRENT, mark);
            send(SCI_INDICATORCLEARRANGE, 0, Length());
        }
    }
    if (!pair) return;
    send(SCI_SETINDICATORCURRENT, pair->start == pair->end ? kLoneMark : kPairMark);
    for (const Position place : {pair->start, pair->end}) send(SCI_INDICATORFILLRANGE, place, 1);
}

/// The places of both, the same one for a parenthesis without a partner.
std::optional<TextRange> RichTextBox::parenthesesAtCaret() const {
    const Position caret = send(SCI_GETCURRENTPOS);
    const Position before = std::max<Position>(caret - 1, 0);
    const auto at = parenthesisAt(Slice(before, caret + 1), static_cast<size_t>(caret - before));
    if (!at) return std::nullopt;

    for (const Position reach : kReaches) {
        const Position start = std::max<Position>(caret - reach, 0);
        const Position end = std::min(caret + reach, Length());
        const TextWindow window{Slice(start, end), start > 0, end < Length()};
        const auto own = static_cast<size_t>(before - start) + *at;
        const auto pair = kind_ == Kind::Field ? pairInField(window, own) : pairInLine(window, own);
        const auto placeOf = [start](size_t offset) { return start + static_cast<Position>(offset); };
        if (pair) return TextRange{placeOf(pair->own), placeOf(pair->partner.value_or(pair->own))};
    }
    return std::nullopt;
}

}  // namespace klt
