#pragma once

#include <string_view>
#include <vector>

namespace klt {

class CommandQueue;
class frmMDIKLTEditor;

/// The texts of all open documents, each good until its next change.
std::vector<std::string_view> openTexts(const frmMDIKLTEditor& window);

/// Ctrl+Space in the main window, which lists what may stand at the caret of the active document. Both must
/// outlive the program's event loop.
void addComplete(frmMDIKLTEditor& window, CommandQueue& queue);

}  // namespace klt
