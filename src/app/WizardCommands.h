#pragma once

#include <string_view>

#include "wizards/WizardServices.h"

namespace klt {

class Editor;

/// What the wizards' forms get of the running program.
WizardServices wizardServices(Editor& editor);

/// Opens the wizard of that form for new lines of the active document, and comes back when it has closed.
/// Nothing happens without a document or such a wizard.
void openWizard(Editor& editor, std::string_view form);

/// Opens the item at the active document's caret in its wizard, whose "&Done!" replaces it; comes back when
/// that has closed. Where there is nothing to edit, or no wizard for it, tells so.
void EditLine(Editor& editor);

}  // namespace klt
