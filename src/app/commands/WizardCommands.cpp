#include "app/commands/WizardCommands.h"

#include <QPointer>
#include <memory>

#include "app/Editor.h"
#include "app/documents/frmKLTEditor.h"
#include "forms/WizardForm.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "settings/Conversions.h"
#include "ui/MessageBox.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

constexpr std::string_view kNoWizard =
    "There is no wizard for the lines of this section yet. Please change the line in the text itself.";

/// Any number above 0 stands for a later host, a fraction too.
bool isHostOld(Store& store) {
    return realFrom(readSetting(store, settings::kTvmVersionChosen)).value_or(0) <= 0;
}

AreaLookup lookupOf(RichTextBox& text) {
    return [box = QPointer(&text)]() -> TextArea* { return box; };
}

/// Shows the moves of the caret that were made under `SuppressCaretUpdate`.
void showCaret(RichTextBox& text) {
    emit text.SelChange();
}

void show(Editor& editor, RichTextBox& document, std::unique_ptr<Wizard> wizard) {
    const QPointer<RichTextBox> text(&document);
    frmMDIKLTEditor& window = editor.mainWindow();
    WizardForm(std::move(wizard), editor.aids.services(), &window).exec();
    window.activateWindow();
    window.Timer1().start();
    if (text) showCaret(*text);
    window.updateMenus();
}

void tell(Editor& editor, std::string_view message, MessageIcon icon) {
    MessageBox(&editor.mainWindow(), message, icon, kTitle);
}

}  // namespace

void openWizard(Editor& editor, const WizardTable& table) {
    auto* const document = editor.mainWindow().ActiveForm();
    if (document == nullptr) return;
    RichTextBox& text = *document->RichTextBox1;
    Opening opening;
    opening.target = lookupOf(text);
    opening.isHostOld = isHostOld(editor.store());
    show(editor, text, makeWizard(table, std::move(opening)));
}

void EditLine(Editor& editor) {
    auto* const document = editor.mainWindow().ActiveForm();
    if (document == nullptr) return;
    RichTextBox& text = *document->RichTextBox1;
    const Position start = text.SelStart(), length = text.SelLength();
    EditLineResult found;
    std::unique_ptr<Wizard> wizard;
    {
        const RaisedFlag suppress(editor.variables.SuppressCaretUpdate);
        found = EditLine(text);
        wizard = wizardOfItem(text, lookupOf(text), found, isHostOld(editor.store()));
    }
    showCaret(text);
    if (wizard != nullptr) return show(editor, text, std::move(wizard));
    switch (found.kind) {
        case EditLineResult::Kind::Author:
            return tell(editor, kAuthorNotEdited, MessageIcon::Information);
        case EditLineResult::Kind::Head:
            return tell(editor, kHeadNotEdited, MessageIcon::Exclamation);
        case EditLineResult::Kind::Item:
            text.Select(start, length);
            return tell(editor, kNoWizard, MessageIcon::Information);
    }
}

}  // namespace klt
