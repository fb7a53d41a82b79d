#include "ui/TextBuffers.h"

#include <algorithm>
#include <limits>

#include "text/Encoding.h"
#include "text/LineEnds.h"

namespace klt {
namespace {

constexpr auto kLongest = static_cast<Position>(kLargestFile);
// Reading a text asks for a byte behind its end.
constexpr Position kTail = 2;
constexpr Position kLeastSpare = 256;
constexpr Position kMostSpareAtLoad = 65536;
// Four bytes a line, in a buffer that grows by steps.
constexpr Position kBytesOfLine = 16;

size_t bytes(Position count) {
    return static_cast<size_t>(std::max<Position>(count, 0));
}

}  // namespace

TextBuffers::Edit TextBuffers::Edit::of(std::string_view text, Position removed) {
    return {removed, static_cast<Position>(text.size()), static_cast<Position>(countLineEndBytes(text) / 2)};
}

Position TextBuffers::capacityFor(const Edit& whole) {
    return whole.added + kLeastSpare + std::min(whole.added / 6, kMostSpareAtLoad);
}

size_t TextBuffers::needFor(const Edit& whole) {
    if (whole.added > kLongest) return std::numeric_limits<size_t>::max();
    return bytes(2 * capacityFor(whole) + kBytesOfLine * whole.lines);
}

Position TextBuffers::capacityFor(Size text, Edit edit) const {
    const Position length = text.bytes - edit.removed + edit.added;
    // Where all goes, the buffers are given up and made anew.
    if (length + kTail <= capacity_ || edit.removed == text.bytes) return 0;
    return length + length / 6 + kLeastSpare;
}

size_t TextBuffers::needFor(Size text, Edit edit) const {
    if (text.bytes - edit.removed + edit.added > kLongest) return std::numeric_limits<size_t>::max();
    size_t need = bytes(edit.removed) + bytes(edit.added) + 2 * bytes(capacityFor(text, edit));
    if (edit.lines > 0) need += bytes(kBytesOfLine * (text.lines + edit.lines));
    if (edit.removed == text.bytes) need += 2 * bytes(edit.added + kLeastSpare);
    return need;
}

size_t TextBuffers::needForHistory() const {
    return emptied_ ? bytes(2 * (largest_.bytes + kLeastSpare) + kBytesOfLine * largest_.lines) : 0;
}

void TextBuffers::forgetHistory(Size text) {
    largest_ = text;
    emptied_ = false;
}

void TextBuffers::textDeleted(Size text, Position bytes) {
    textInserted(text, 0);
    if (bytes < text.bytes) return;
    capacity_ = 0;
    emptied_ = true;
}

void TextBuffers::textInserted(Size text, Position bytes) {
    largest_ = {std::max(largest_.bytes, text.bytes + bytes), std::max(largest_.lines, text.lines)};
}

}  // namespace klt
