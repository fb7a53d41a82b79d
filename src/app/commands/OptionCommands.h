#pragma once

#include "app/options/frmOptions.h"

namespace klt {

class Editor;

/// Shows the dialog of options on a tab, modally, until it is closed. One that is up already comes to the
/// front, on that tab.
void openOptions(Editor& editor, OptionsTab tab);

/// Shows the dialog beside the main window and says that the host's version must be chosen, where it never
/// was.
void demandVersion(Editor& editor);

}  // namespace klt
