#pragma once

#include "text/TextArea.h"

namespace klt {

/// Puts today's date behind the first "* Modified: " of the text, wherever that stands, in place of all up to
/// the line's end. Selection and caret move. True where that may have been no date, but something of the
/// user's: it held no digit, or more than 30 characters.
bool stampModified(TextArea& text);

}  // namespace klt
