#include "ui/StyleRunSearch.h"

#include <algorithm>
#include <string>

namespace klt {
namespace {

/// Reads the styles of a box in blocks: a call for each byte would be slow over a large text.
class StyleReader {
public:
    StyleReader(const RichTextBox& box, StyleByte style) : box_(box), style_(style), length_(box.Length()) {}

    Position length() const { return length_; }
    bool isInside(Position place) const {
        return place > 0 && place < length_ && has(box_.StyleAt(place - 1)) && has(box_.StyleAt(place));
    }
    /// The first place from `from` on that is, or is not, in the style; else the end.
    Position forward(Position from, bool inStyle) {
        for (; from < length_; from += kBlock) {
            const Position end = std::min(from + kBlock, length_);
            read(from, end);
            for (Position at = from; at < end; ++at)
                if (has(cell(at - from)) == inStyle) return at;
        }
        return length_;
    }
    /// The last place up to `before` that has such a byte in front of it; else 0.
    Position backward(Position before, bool inStyle) {
        for (; before > 0; before -= std::min(before, kBlock)) {
            const Position start = std::max<Position>(before - kBlock, 0);
            read(start, before);
            for (Position at = before; at > start; --at)
                if (has(cell(at - 1 - start)) == inStyle) return at;
        }
        return 0;
    }

private:
    static constexpr Position kBlock = 16384;

    bool has(StyleByte style) const { return style == style_; }
    void read(Position start, Position end) { block_ = box_.Styles(start, end); }
    StyleByte cell(Position at) const { return static_cast<StyleByte>(block_[static_cast<size_t>(at)]); }

    const RichTextBox& box_;
    StyleByte style_;
    Position length_;
    std::string block_;
};

}  // namespace

std::optional<TextRange> nextStyleRun(const RichTextBox& box, StyleByte style, Position from) {
    StyleReader reader(box, style);
    if (reader.isInside(from)) from = reader.forward(from, false);
    const Position start = reader.forward(from, true);
    if (start == reader.length()) return std::nullopt;
    return TextRange{start, reader.forward(start, false)};
}

std::optional<TextRange> previousStyleRun(const RichTextBox& box, StyleByte style, Position before) {
    StyleReader reader(box, style);
    if (reader.isInside(before)) before = reader.backward(before, false);
    const Position end = reader.backward(before, true);
    if (end == 0) return std::nullopt;
    return TextRange{reader.backward(end, false), end};
}

}  // namespace klt
