#pragma once

#include <compare>
#include <concepts>
#include <cstddef>

namespace klt {

/// Where a scanner stands in its text: at a character, behind the last one, or in front of the first. It is
/// never taken for a `Position` in the document, nor for a number: what runs off the text says so otherwise.
class ScanPosition {
public:
    /// At the first character.
    constexpr ScanPosition() = default;
    constexpr explicit ScanPosition(std::same_as<size_t> auto offset)
        : offset_(static_cast<std::ptrdiff_t>(offset)) {}

    /// The byte's offset in the scanned text, from 0. In front of the text it is beyond every text.
    constexpr size_t offset() const { return static_cast<size_t>(offset_); }

    constexpr ScanPosition& operator+=(std::integral auto count) {
        offset_ += static_cast<std::ptrdiff_t>(count);
        return *this;
    }
    constexpr ScanPosition& operator-=(std::integral auto count) {
        offset_ -= static_cast<std::ptrdiff_t>(count);
        return *this;
    }
    constexpr ScanPosition& operator++() { return *this += 1; }
    constexpr ScanPosition& operator--() { return *this -= 1; }
    friend constexpr ScanPosition operator+(ScanPosition from, std::integral auto count) {
        return from += count;
    }
    friend constexpr ScanPosition operator-(ScanPosition from, std::integral auto count) {
        return from -= count;
    }
    /// How many bytes lie between the two.
    friend constexpr std::ptrdiff_t operator-(ScanPosition to, ScanPosition from) {
        return to.offset_ - from.offset_;
    }
    constexpr auto operator<=>(const ScanPosition&) const = default;

private:
    std::ptrdiff_t offset_ = 0;
};

inline constexpr ScanPosition kFirst;
/// In front of the first character: the next step is at it.
inline constexpr ScanPosition kInFront = kFirst - 1;

}  // namespace klt
