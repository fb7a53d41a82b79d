#include "ui/PackedStyles.h"

#include <algorithm>
#include <array>

#include "ui/RichTextBox.h"

namespace klt {
namespace {

// A run is one byte, with its length in the upper bits; where that is too long they are 0, and the length
// follows in groups of seven bits, the last one without the mark.
constexpr int kStyleBits = 5;
constexpr unsigned kStyleMask = (1U << kStyleBits) - 1;
constexpr size_t kShortRun = 7;
constexpr unsigned kMoreMark = 0x80;
constexpr int kLengthBits = 7;

constexpr size_t kBlock = 4096;

void pack(std::string& packed, StyleByte style, size_t length) {
    const unsigned low = style & kStyleMask;
    if (length <= kShortRun) {
        packed += static_cast<char>(low | (static_cast<unsigned>(length) << kStyleBits));
        return;
    }
    packed += static_cast<char>(low);
    for (; length >= kMoreMark; length >>= kLengthBits)
        packed += static_cast<char>(kMoreMark | (length & (kMoreMark - 1)));
    packed += static_cast<char>(length);
}

size_t takeLength(std::string_view& packed, unsigned first) {
    if (const unsigned length = first >> kStyleBits) return length;
    size_t length = 0;
    for (int shift = 0; !packed.empty(); shift += kLengthBits) {
        const auto byte = static_cast<unsigned char>(packed.front());
        packed.remove_prefix(1);
        length |= static_cast<size_t>(byte & (kMoreMark - 1)) << shift;
        if ((byte & kMoreMark) == 0) break;
    }
    return length;
}

}  // namespace

std::string packedStyles(const RichTextBox& box, TextRange range) {
    std::string packed;
    StyleByte style = 0;
    size_t length = 0;
    // Each byte stands in front of its style, two NULs behind them all.
    std::array<char, 2 * kBlock + 2> cells;
    for (Position at = range.start; at < range.end;) {
        const Position end = std::min(at + static_cast<Position>(kBlock), range.end);
        box.SendScintilla(QsciScintillaBase::SCI_GETSTYLEDTEXT, at, end, cells.data());
        const auto count = static_cast<size_t>(end - at);
        for (size_t cell = 0; cell < count; ++cell) {
            const auto next = static_cast<StyleByte>(cells[2 * cell + 1]);
            if (next != style && length > 0) pack(packed, style, std::exchange(length, 0));
            style = next;
            ++length;
        }
        at = end;
    }
    if (packed.empty() && style == 0) return packed;
    pack(packed, style, length);
    packed.shrink_to_fit();
    return packed;
}

void layPackedStyles(RichTextBox& box, Position start, std::string_view packed) {
    std::array<char, kBlock> block;
    size_t filled = 0;
    const auto lay = [&] {
        box.LayStyles(start, {block.data(), filled});
        start += static_cast<Position>(std::exchange(filled, 0));
    };
    while (!packed.empty()) {
        const auto first = static_cast<unsigned char>(packed.front());
        packed.remove_prefix(1);
        for (size_t left = takeLength(packed, first); left > 0;) {
            const size_t part = std::min(left, kBlock - filled);
            std::fill_n(block.begin() + static_cast<Position>(filled), part,
                        static_cast<char>(first & kStyleMask));
            filled += part;
            left -= part;
            if (filled == kBlock) lay();
        }
    }
    if (filled > 0) lay();
}

}  // namespace klt
