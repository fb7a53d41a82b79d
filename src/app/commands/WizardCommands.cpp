#include "app/commands/WizardCommands.h"

#include <QPointer>
#include <algorithm>
#include <array>
#include <memory>

#include "app/Editor.h"
#include "app/documents/frmKLTEditor.h"
#include "forms/WizardForm.h"
#include "platform/ProgramNames.h"
#include "ui/MessageBox.h"
#include "wizards/AdvantageWizard.h"
#include "wizards/EditLine.h"
#include "wizards/Wizard.h"

namespace klt {
namespace {

constexpr std::string_view kNoWizard =
    "There is no wizard for the lines of this section yet. Please change the line in the text itself.";

/// Every wizard for lines of a document that there is.
constexpr std::array kWizards = {&kAdWizard};

const WizardTable* wizardTable(std::string_view form) {
    const auto* const found =
        std::ranges::find_if(kWizards, [form](const WizardTable* table) { return table->form == form; });
    return found == kWizards.end() ? nullptr : *found;
}

AreaLookup lookupOf(RichTextBox& text) {
    return [box = QPointer(&text)]() -> TextArea* { return box; };
}

/// The wizard of the item at `place`, filled from it; the item is selected.
std::unique_ptr<Wizard> wizardOfItem(RichTextBox& text, const EditLineResult& found,
                                     const WizardTable& table) {
    const EditSection& section = *found.section;
    auto item = LoadSingleLine(text, found.EditLineStart);
    auto wizard =
        std::make_unique<Wizard>(table, Opening{OpeningMode::Edit, lookupOf(text), std::move(item)});
    wizard->fillCombos(text.Text());
    wizard->SelectSubsection(section, subsectionAbove(text, found.EditLineStart, section.isWholeHeading));
    wizard->load();
    return wizard;
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

void openWizard(Editor& editor, std::string_view form) {
    auto* const document = editor.mainWindow().ActiveForm();
    const WizardTable* const table = wizardTable(form);
    if (document == nullptr || table == nullptr) return;
    RichTextBox& text = *document->RichTextBox1;
    show(editor, text, std::make_unique<Wizard>(*table, Opening{OpeningMode::Insert, lookupOf(text)}));
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
        const auto* table = found.section == nullptr ? nullptr : wizardTable(found.section->form);
        if (table != nullptr) wizard = wizardOfItem(text, found, *table);
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
