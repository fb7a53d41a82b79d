#pragma once

#include <string_view>

#include "language/LogicalLine.h"

namespace klt {

/// The logical line that holds a place of a text.
struct LineAt {
    LineKind kind = LineKind::Blank;
    size_t start = 0;
    /// The end of what is read of it: in front of its `//`, and of an empty line that ends it.
    size_t end = 0;
    /// Whether the place stands behind a `//`.
    bool isInComment = false;
};

/// The section of the line in which `offset` stands, by the pass's walk over lines. The line of a header
/// belongs to the section above.
Section sectionAt(std::string_view text, size_t offset);

/// The line in which `offset` stands, in a text whose lines stand under `section` there. Both functions look
/// at no more of the text than they need.
LineAt lineAt(std::string_view text, size_t offset, Section section);

}  // namespace klt
