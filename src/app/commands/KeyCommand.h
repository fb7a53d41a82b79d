#pragma once

#include <QKeyCombination>
#include <functional>

namespace klt {

class CommandQueue;
class frmKLTEditor;
class frmMDIKLTEditor;

/// Gives the main window a command, under a name, that has a key and no menu item. It waits as the others do
/// and works on the active document; without one it does nothing. Window and queue must outlive the program's
/// event loop.
void addKeyCommand(frmMDIKLTEditor& window, CommandQueue& queue, const char* name, QKeyCombination key,
                   std::function<void(frmKLTEditor&)> run);

}  // namespace klt
