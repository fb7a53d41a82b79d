#pragma once

namespace klt {

class CommandQueue;
class frmMDIKLTEditor;

/// F8 and Shift+F8 in the main window: to the next or previous run in error of the active document, as far as
/// the text's end or start, with a tip that tells why. Both must outlive the program's event loop.
void addErrorWalk(frmMDIKLTEditor& window, CommandQueue& queue);

}  // namespace klt
