#pragma once

#include <string_view>

namespace klt {

class Editor;

/// Opens the wizard of that form for new lines of the active document, and comes back when it has closed.
/// Nothing happens without a document or such a wizard.
void openWizard(Editor& editor, std::string_view form);

/// Opens the item at the active document's caret in its wizard, whose "&Done!" replaces it; comes back when
/// that has closed. Where there is nothing to edit, or no wizard for it, tells so.
void EditLine(Editor& editor);

}  // namespace klt
