#pragma once

#include "text/TextArea.h"

namespace klt {

/// Puts today's date behind the first "* Modified: " of the text, wherever that stands, in place of all up to
/// the line's end. Selection and caret move.
void stampModified(TextArea& text);

}  // namespace klt
