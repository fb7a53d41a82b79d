#include "forms/WizardForm.h"

#include <QComboBox>
#include <QCursor>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "forms/WizardCombo.h"
#include "forms/WizardLayout.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "ui/FormPlace.h"
#include "ui/MessageBox.h"
#include "ui/QtStrings.h"
#include "ui/RichTextBox.h"
#include "ui/WaitCursor.h"
#include "wizards/LinePlace.h"

namespace klt {
namespace {

/// Where a menu opens: at the mouse; below the button where the keyboard pressed it.
QPoint menuPlace(const QWidget& button) {
    const QPoint mouse = QCursor::pos();
    const QRect area = button.rect();
    return area.contains(button.mapFromGlobal(mouse)) ? mouse : button.mapToGlobal(area.bottomLeft());
}

}  // namespace

WizardForm::WizardForm(std::unique_ptr<Wizard> wizard, WizardServices services, QWidget* owner)
    : QDialog(owner),
      wizard_(std::move(wizard)),
      services_(std::move(services)),
      controls_(makeControls(*this, wizard_->table(), wizard_->state, services_)) {
    setObjectName(toQString(wizard_->table().form));
    setWindowTitle(toQString(wizard_->table().title));
    setWindowModality(Qt::ApplicationModal);
    layOut(*this, *wizard_, controls_);
    if (wizard_->opening().mode == OpeningMode::Insert) fillLists();
    wire();
    showState();
}

void WizardForm::fillLists() {
    TextArea* const document = wizard_->table().places.empty() ? nullptr : wizard_->opening().target();
    if (document == nullptr) return;
    const WaitCursor wait;
    const QScopedValueRollback suppress(services_.SuppressCaretUpdate, true);
    wizard_->fillCombos(document->Text());
    document->SetSelStart(0);
    scrollToPlace();
}

void WizardForm::wire() {
    for (const WizardControl& control : controls_.controls) {
        const auto name = control.row.name;
        if (auto* combo = qobject_cast<QComboBox*>(&control.widget)) {
            connect(combo, &QComboBox::activated, this, [this, name](int item) { click(name, item); });
        } else if (control.row.kind == ControlKind::Button) {
            wireButton(control);
        } else if (auto* mark = qobject_cast<QAbstractButton*>(&control.widget)) {
            connect(mark, &QAbstractButton::clicked, this,
                    [this, name](bool isOn) { click(name, isOn ? kOn : kOff); });
        }
    }
}

void WizardForm::wireButton(const WizardControl& control) {
    const ControlRow& row = control.row;
    auto& button = dynamic_cast<QPushButton&>(control.widget);
    const auto onClick = [&](auto action) { connect(&button, &QPushButton::clicked, this, action); };
    switch (row.use) {
        case ButtonUse::Done:
            return onClick([this] { finish(); });
        case ButtonUse::Cancel:
            return onClick([this] { reject(); });
        case ButtonUse::Help:
            return onClick([this] { services_.showHelp(wizard_->table().form); });
        case ButtonUse::SyntaxAid:
            return onClick([this, &row, &button] {
                services_.showSyntaxAid(*this, field(row.field), row.menu, menuPlace(button));
            });
        case ButtonUse::GivesWizard:
            return onClick([this, &row] { services_.showGivesWizard(*this, field(row.field)); });
        case ButtonUse::Own:
            return;
    }
}

void WizardForm::showState() {
    klt::showState(controls_, wizard_->state);
    const auto lacks = [this](ButtonUse use) {
        return (use == ButtonUse::Help && !services_.showHelp) ||
               (use == ButtonUse::SyntaxAid && !services_.showSyntaxAid) ||
               (use == ButtonUse::GivesWizard && !services_.showGivesWizard);
    };
    for (const WizardControl& control : controls_.controls)
        if (lacks(control.row.use)) control.widget.setEnabled(false);
}

QWidget& WizardForm::widget(std::string_view name) const {
    return std::ranges::find_if(controls_.controls,
                                [name](const WizardControl& each) { return each.row.name == name; })
        ->widget;
}

RichTextBox& WizardForm::field(std::string_view name) const {
    return dynamic_cast<RichTextBox&>(widget(name));
}

void WizardForm::setVisible(bool visible) {
    const bool isFirst = visible && !std::exchange(isPlaced_, true);
    if (isFirst) {
        adjustSize();
        focusFirst();
        if (const auto* position = settings::windowPosition(wizard_->table().form))
            restorePosition(*this, services_.store, *position);
    }
    QDialog::setVisible(visible);
    // The base class selects what a combo holds, and no field's text.
    const auto* combo = qobject_cast<QComboBox*>(focusWidget());
    if (isFirst && combo != nullptr && combo->isEditable()) combo->lineEdit()->home(false);
}

void WizardForm::done(int result) {
    if (const auto* position = settings::windowPosition(wizard_->table().form))
        storePosition(*this, services_.store, *position);
    QDialog::done(result);
}

void WizardForm::click(std::string_view control, int state) {
    wizard_->click(control, state);
    showState();
    const PlaceRow* const place = wizard_->place();
    if (place != nullptr && place->option == control) scrollToPlace();
}

void WizardForm::scrollToPlace() const {
    const PlaceRow* const place = wizard_->place();
    if (place == nullptr || wizard_->opening().mode != OpeningMode::Insert) return;
    if (TextArea* const document = wizard_->opening().target()) ScrollToSection(*document, place->section);
}

void WizardForm::finish() {
    // Enter leaves the focus where it is.
    if (auto* combo = qobject_cast<WizardCombo*>(focusWidget())) combo->commit();
    DoneResult result;
    {
        const WaitCursor wait;
        const QScopedValueRollback suppress(services_.SuppressCaretUpdate, true);
        result = wizard_->finish(readLineBreakLimits(services_.store));
        showState();
    }
    switch (result.kind) {
        case DoneResult::Kind::Refused:
            return complain(result.complaint);
        case DoneResult::Kind::StaysOpen:
            return result.focus.empty() ? focusFirst() : widget(result.focus).setFocus();
        case DoneResult::Kind::Closes:
            return accept();
    }
}

void WizardForm::complain(const Complaint& complaint) {
    MessageBox(this, complaint.message, MessageIcon::Exclamation, kTitle);
    if (!complaint.focus.empty()) widget(complaint.focus).setFocus();
}

void WizardForm::focusFirst() {
    for (const WizardControl& control : controls_.controls) {
        if (!control.widget.isEnabled() || !control.widget.isVisibleTo(this)) continue;
        return control.widget.setFocus();
    }
}

}  // namespace klt
