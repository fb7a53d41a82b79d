#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace klt {

/// A character as a terminal or a list can show it.
struct ShownCharacter {
    char32_t code = 0;
    /// The columns that it takes in a font of one width: 0 for a mark on the character in front, 2 for a wide
    /// one.
    int columns = 1;
};

/// What is shown for a character: itself, but for what a terminal would obey or would lay out otherwise
/// (control characters, changes of direction, line separators), in whose place another one stands. So does
/// one for a byte of no valid character. A tab counts as a control character.
ShownCharacter shownCharacter(char32_t code);

/// `text` with blanks, tabs and line ends as single blanks, cut to at most `most` characters (3 or more), the
/// last three of which are "..." where it is cut.
std::string shownOnOneLine(std::string_view text, size_t most);

}  // namespace klt
