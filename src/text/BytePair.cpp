#include "text/BytePair.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace klt {
namespace {

constexpr size_t kLanes = 16;
using Lanes [[gnu::vector_size(kLanes)]] = unsigned char;

Lanes lanesOf(unsigned char byte) {
    return Lanes{} + byte;
}

/// All bits in each lane that holds the byte.
Lanes equalLanes(const char* text, const ByteSpelling& spelling) {
    Lanes lanes;
    std::memcpy(&lanes, text, kLanes);
    return std::bit_cast<Lanes>((lanes | lanesOf(spelling.ignored)) == lanesOf(spelling.value));
}

/// The first lane that is not 0; `kLanes` where all are.
size_t firstSet(Lanes lanes) {
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(lanes);
    if ((halves[0] | halves[1]) == 0) return kLanes;
    size_t lane = 0;
    while (lanes[lane] == 0) ++lane;
    return lane;
}

bool isByte(char byte, const ByteSpelling& spelling) {
    return (static_cast<unsigned char>(byte) | spelling.ignored) == spelling.value;
}

}  // namespace

size_t findBytePair(std::string_view text, size_t from, const BytePair& bytes) {
    size_t offset = from;
    for (; offset + kLanes < text.size(); offset += kLanes) {
        const char* const start = text.data() + offset;
        Lanes hits = equalLanes(start, bytes.first);
        if (bytes.second) hits &= equalLanes(start + 1, *bytes.second);
        if (const size_t lane = firstSet(hits); lane < kLanes) return offset + lane;
    }
    for (; offset < text.size(); ++offset) {
        if (!isByte(text[offset], bytes.first)) continue;
        if (!bytes.second) return offset;
        if (offset + 1 < text.size() && isByte(text[offset + 1], *bytes.second)) return offset;
    }
    return text.npos;
}

}  // namespace klt
