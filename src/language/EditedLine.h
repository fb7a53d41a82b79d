#pragma once

#include <string>
#include <string_view>

#include "text/TextArea.h"

// How a line is read back into its form. This is not the checker's walk (language/LogicalLine.h), and where
// the two differ, both stand as they are:
// - each physical line is asked by itself whether it goes on; the checker asks all that it has joined so far;
// - a "//" ends the line in any of its physical lines, for the checker in the first alone;
// - a physical line that begins with "*" ends it; the checker takes it like any other continuation;
// - an empty physical line is joined, and goes no further; for the checker it is no part of the line's text;
// - a package header goes on like every line, for the checker behind "_" alone;
// - breaks and marks are taken out of the text; the checker leaves them in and passes over them.
namespace klt {

/// A logical line as it is taken for editing.
struct EditedLine {
    /// The physical lines, with " _" and CR LF between them; one that ends in "_" gets CR LF alone.
    std::string text;
    /// Where it stands in the document, with the line end behind it where there is one.
    TextRange range;
};

/// The logical line that begins with the physical line at `position` (clamped to the document). A
/// continuation mark in the document's last line is answered by an empty line.
EditedLine GetLogicalLine(std::string_view document, Position position);

/// The text of a logical line made one line, as the wizards load it: "_" with CR LF goes, a tab becomes a
/// blank, a double blank one, each in a single pass.
std::string joinItemLine(std::string_view logicalLine);

/// The same for a line of the package box, where "_", CR LF and tab go together and "~P " gets a blank in
/// front. A step that would leave nothing of the line is not taken.
std::string joinPackageLine(std::string_view logicalLine);

}  // namespace klt
