#include <algorithm>
#include <cstdint>
#include <cstring>

#include "checker/Structures.h"

namespace klt {

namespace {

constexpr uint64_t kEach = 0x0101010101010101U;

// A 1 in each of the eight bytes that is `c`.
uint64_t marksOf(uint64_t bytes, char c) {
    constexpr uint64_t kLow = kEach * 0x7F;
    const auto difference = bytes ^ (kEach * static_cast<unsigned char>(c));
    return ~(((difference & kLow) + kLow) | difference | kLow) >> 7;
}

// The sum of eight small bytes.
Position sumOf(uint64_t bytes) {
    return static_cast<Position>(bytes * kEach >> 56);
}

}  // namespace

bool parenthesesMatch(std::string_view text) {
    constexpr size_t kStep = sizeof(uint64_t);
    // As many steps as a sum of eight counts fits into one byte.
    constexpr size_t kBlock = kStep * 31;
    Position open = 0;
    size_t i = 0;
    while (i + kStep <= text.size()) {
        uint64_t opening = 0;
        uint64_t closing = 0;
        for (const auto end = std::min(i + kBlock, text.size()); i + kStep <= end; i += kStep) {
            uint64_t bytes = 0;
            std::memcpy(&bytes, text.data() + i, kStep);
            opening += marksOf(bytes, '(');
            closing += marksOf(bytes, ')');
        }
        open += sumOf(opening) - sumOf(closing);
    }
    for (; i < text.size(); ++i) open += (text[i] == '(' ? 1 : 0) - (text[i] == ')' ? 1 : 0);
    return open == 0;
}

void CheckLine(LineCheck& line, std::string_view text, Position lineStart) {
    if (text.empty() || text == "\r" || text == "\n") return;
    Scan scan(line, text, lineStart);
    if (!parenthesesMatch(text)) return scan.wholeError(ErrorReason::ParenthesesDiffer);
    switch (line.state.section()) {
        case Section::Groups:
            return checkGroupLine(scan);
        case Section::Bonus:
            return checkBonusLine(scan);
        case Section::Packages:
            return checkPackageLine(scan);
        default:
            return checkFields(scan);
    }
}

}  // namespace klt
