#pragma once

#include <string>
#include <string_view>

#include "text/TextArea.h"

namespace klt {

/// One line of a text, and below it what it is shown for.
struct SourcePicture {
    std::string line;
    /// Blanks, then `~` below each column of the run, but for `^` below the caret. No line end.
    std::string marks;
};

/// The picture of the line of `text` (CR LF line ends) that begins at `lineStart`, for a run that begins in
/// it, of which what lies behind the line is left out, and a `caret` in it. At most `columns` (24 or more)
/// are taken: of a longer line the part around the caret is shown, with "..." where it is cut. Tabs reach to
/// every eighth column. It costs the same at any length of the line.
SourcePicture pictureOf(std::string_view text, size_t lineStart, TextRange run, size_t caret, size_t columns);

}  // namespace klt
