#pragma once

#include <string_view>

namespace klt {

class Editor;

/// Whether the program has the command of this key yet. One that it lacks is disabled everywhere.
bool commandIsThere(std::string_view key);

/// Carries out the command of a menu item or a button. A key without a command does nothing, and so does a
/// command that needs a document where none is open.
void runCommand(Editor& editor, std::string_view key);

}  // namespace klt
