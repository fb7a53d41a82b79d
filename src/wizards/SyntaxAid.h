#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "language/Vocabulary.h"
#include "text/TextArea.h"
#include "wizards/AidMenus.h"

namespace klt {

/// Shows a prompt and gives what was typed; empty where it was given up. `kind` is the prefix tag of the
/// items whose name is asked for; null for a number.
using AskFor = std::function<std::string(std::string_view prompt, const PrefixRow* kind)>;

enum class AidOutcome : unsigned char { Nothing, Inserted, OpensFunctions, OpensMods };

/// Writes `text` at the field's caret, over what is selected; with `isSeparated` behind ", " where the field
/// holds text.
void InsertAid(TextArea& field, std::string_view text, bool isSeparated);

/// Does what the item at `position` (from 1; 0: none was chosen) stands for. A heading and the name of a
/// sub-menu do nothing, and nothing is inserted for an empty answer. Who is told to open a wizard opens it.
AidOutcome SyntaxAid(const AidMenu& menu, int position, TextArea& field, const AskFor& askFor);

}  // namespace klt
