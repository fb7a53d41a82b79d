#pragma once

namespace klt {

class Editor;
class frmMDIKLTEditor;
struct WizardTable;

/// Opens a wizard for new lines of the active document, and comes back when it has closed. One of its kind
/// that is open already comes to the front instead. Nothing happens without a document.
void openWizard(Editor& editor, const WizardTable& table);

/// The same for the wizard of the author's block.
void openAuthorWizard(Editor& editor);

/// Opens the item at the active document's caret in its wizard, whose "&Done!" replaces it; comes back when
/// that has closed, or at once where the wizard is not modal. Where nothing can be edited, tells so.
void EditLine(Editor& editor);

/// Whether the wizards that stand open beside the main window may go with it; asks where lines would be lost.
bool mayCloseForms(frmMDIKLTEditor& window);

}  // namespace klt
