#pragma once

namespace klt {

class CommandQueue;
class frmMDIKLTEditor;

/// Ctrl+G in the main window, which opens the field that goes to a line of the active document, and F12: to
/// the item, subsection or package whose name behind a prefix tag the caret is in. Of all open documents the
/// active one is searched first. Both must outlive the program's event loop.
void addGoTo(frmMDIKLTEditor& window, CommandQueue& queue);

}  // namespace klt
