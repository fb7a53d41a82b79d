#include "app/commands/WizardCommands.h"

#include <QList>
#include <QPointer>
#include <algorithm>
#include <memory>

#include "app/Editor.h"
#include "app/dialogs/frmAuthorWizard.h"
#include "app/documents/frmKLTEditor.h"
#include "forms/WizardForm.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "settings/Conversions.h"
#include "ui/MessageBox.h"
#include "ui/QtStrings.h"
#include "wizards/EditedBlock.h"
#include "wizards/Wizards.h"

namespace klt {
namespace {

/// Any number above 0 stands for a later host, a fraction too.
bool isHostOld(Store& store) {
    return realFrom(readSetting(store, settings::kTvmVersionChosen)).value_or(0) <= 0;
}

/// Shows the moves of the caret that were made under `SuppressCaretUpdate`.
void showCaret(RichTextBox& text) {
    emit text.SelChange();
}

/// Gives the text the keyboard again after a wizard.
void comeBack(Editor& editor, const QPointer<RichTextBox>& text) {
    frmMDIKLTEditor& window = editor.mainWindow();
    window.activateWindow();
    window.Timer1().start();
    if (text) showCaret(*text);
    window.updateMenus();
}

/// The wizards that are open beside the main window.
QList<WizardForm*> openForms(frmMDIKLTEditor& window) {
    return window.findChildren<WizardForm*>(Qt::FindDirectChildrenOnly);
}

/// Brings the wizard of that kind to the front; false where none is open.
bool bringToFront(frmMDIKLTEditor& window, const WizardTable& table) {
    for (WizardForm* form : openForms(window)) {
        if (&form->wizard().table() != &table) continue;
        form->showNormal();
        form->raise();
        form->activateWindow();
        return true;
    }
    return false;
}

void show(Editor& editor, RichTextBox& document, std::unique_ptr<Wizard> wizard) {
    const QPointer<RichTextBox> text(&document);
    auto form = std::make_unique<WizardForm>(std::move(wizard), editor.aids.services(), &editor.mainWindow());
    if (!form->isModeless()) {
        form->exec();
        return comeBack(editor, text);
    }
    QObject::connect(form.get(), &QDialog::finished, &editor, [&editor, text] { comeBack(editor, text); });
    form->setAttribute(Qt::WA_DeleteOnClose);
    form.release()->show();
}

void tell(Editor& editor, std::string_view message, MessageIcon icon) {
    MessageBox(&editor.mainWindow(), message, icon, kTitle);
}

}  // namespace

void openWizard(Editor& editor, const WizardTable& table) {
    auto* const document = editor.mainWindow().ActiveForm();
    if (document == nullptr || bringToFront(editor.mainWindow(), table)) return;
    RichTextBox& text = *document->RichTextBox1;
    Opening opening;
    opening.target = lookupOf(text);
    opening.isHostOld = isHostOld(editor.store());
    show(editor, text, makeWizard(table, std::move(opening)));
}

void openAuthorWizard(Editor& editor) {
    auto* const document = editor.mainWindow().ActiveForm();
    if (document == nullptr) return;
    const QPointer<RichTextBox> text(document->RichTextBox1);
    {
        const RaisedFlag suppress(editor.variables.SuppressCaretUpdate);
        const Position place = text->Find(kAuthorSection, 0);
        if (place != kNotFound) text->SetSelStart(place);
    }
    AuthorDocument target{.text = lookupOf(*text),
                          .fileName = fromPath(document->fileStem()),
                          .nameFile = [&editor, found = QPointer(document)](const QString& name) {
                              if (found) editor.documents.NameFile(*found, toPath(name));
                          }};
    // The main window may take it along.
    const QPointer<frmAuthorWizard> form =
        new frmAuthorWizard(editor.aids.services(), std::move(target), &editor.mainWindow());
    form->exec();
    delete form;
    comeBack(editor, text);
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
        const WizardTable* const table = wizardOfSection(found.section).table;
        if (table != nullptr && bringToFront(editor.mainWindow(), *table)) return text.Select(start, length);
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
            return tell(editor, kNoPackage, MessageIcon::Information);
    }
}

bool mayCloseForms(frmMDIKLTEditor& window) {
    return std::ranges::all_of(openForms(window), &WizardForm::mayClose);
}

}  // namespace klt
