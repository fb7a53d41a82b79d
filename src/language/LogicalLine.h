#pragma once

#include <optional>
#include <string_view>

#include "language/Section.h"
#include "text/TextArea.h"

namespace klt {

enum class LineKind : unsigned char {
    Blank,
    Comment,
    SectionHeader,
    SubsectionHeader,
    Version,
    PackageHeader,
    Item,
};

/// The version line in its canonical spelling.
inline constexpr std::string_view kVersionLine = "Version=2";
inline constexpr Position kVersionLineLength = kVersionLine.size();

/// The kind of a physical line (without its line end) under `section`. A line that begins with `[` or `<` is
/// told as a header, whether or not it is a right one.
LineKind classifyLine(std::string_view line, Section section);

/// The end of the physical line that begins at `start`: the offset of its CR LF, or the text's length.
size_t lineEnd(std::string_view text, size_t start);

/// One item line or package header with its continuation lines.
struct LogicalLine {
    size_t start = 0;
    /// The end of the text to check: in front of its line end, or of its `//`.
    size_t end = 0;
    /// From `//` to the end of the physical line; empty without one.
    size_t commentEnd = 0;
    /// Where the line behind it begins; behind the end of the text where there is none.
    size_t next = 0;
    /// The physical lines taken, an empty one that ended it included.
    Position lines = 1;

    bool hasComment() const { return commentEnd > end; }
};

/// Which line an item line looks at to see whether it ends at an empty one.
enum class EmptyTest : unsigned char {
    /// The one to be joined next.
    NextLine,
    /// At every round the one right after its first, as the preview boxes have it.
    FirstFollowing,
};

/// The item line that begins at `start`. It goes on over line ends as long as what it holds so far, trimmed,
/// ends in `_`, `,` or `|`; with a `//` in its first line it ends there.
LogicalLine itemLine(std::string_view text, size_t start, EmptyTest emptyTest);

/// The package header that begins at `start`; it goes on as long as it ends, trimmed, in `_`.
LogicalLine packageHeader(std::string_view text, size_t start);

/// Where the line behind the one of that kind begins that begins at `start`, and whose first physical line
/// ends at `end`; behind the text's end where a line end lacks.
size_t nextLine(std::string_view text, size_t start, size_t end, LineKind kind);

/// Where a logical line begins for sure, whatever stands further in front: the last such place at or in front
/// of the physical line that holds `place`. None where the text shows none; its own start is not looked at.
std::optional<size_t> lineStartBefore(std::string_view text, size_t place);

/// No line of either kind that begins anywhere in the text is longer, in bytes.
size_t longestLine(std::string_view text);

}  // namespace klt
