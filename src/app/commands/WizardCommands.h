#pragma once

namespace klt {

class Editor;
struct WizardTable;

/// Opens a wizard for new lines of the active document, and comes back when it has closed. Nothing happens
/// without a document.
void openWizard(Editor& editor, const WizardTable& table);

/// Opens the item at the active document's caret in its wizard, whose "&Done!" replaces it; comes back when
/// that has closed. Where there is nothing to edit, or no wizard for it, tells so.
void EditLine(Editor& editor);

}  // namespace klt
