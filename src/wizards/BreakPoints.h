#pragma once

#include <string_view>
#include <vector>

#include "language/Section.h"

namespace klt {

/// The kinds of break points, the ones liked best first.
enum class BreakKind : unsigned char {
    /// Behind a `,` or `|` between tags.
    BetweenTags,
    /// Behind a `,` or `|` inside parentheses.
    InValue,
    /// At a blank between two words.
    Blank,
};

/// A blank at which a line may be broken. Behind `,` or `|` the break takes its place; at a blank it comes
/// behind it and needs a mark.
struct BreakPoint {
    /// The blank's place in the line, in bytes.
    size_t blank = 0;
    BreakKind kind{};

    bool needsMark() const { return kind == BreakKind::Blank; }
    bool operator==(const BreakPoint&) const = default;
};

/// The places, in ascending order, where the rules of the language let the physical line end; whether the
/// checker finds the same behind such a break is not asked here. None where the line may not be broken at
/// all: where it holds `//` or a line end, is no item line, stands in a section whose lines are no logical
/// ones, or is a package line that neither adds nor creates an item.
std::vector<BreakPoint> breakPoints(std::string_view line, Section section);

}  // namespace klt
