#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace klt {

/// A byte, and the bits that it may lack: lower-case letters without 0x20 are their upper case. `value` has
/// the bits of `ignored`.
struct ByteSpelling {
    unsigned char value = 0;
    unsigned char ignored = 0;
};

/// One byte, or two that follow each other.
struct BytePair {
    ByteSpelling first;
    std::optional<ByteSpelling> second;
};

/// The offset of the bytes, the first at or behind `from`; npos where they don't stand. Reads many bytes at a
/// time, and none far behind what it finds.
size_t findBytePair(std::string_view text, size_t from, const BytePair& bytes);

}  // namespace klt
