#include "forms/WizardForm.h"

#include <QComboBox>
#include <QCursor>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTabWidget>
#include <algorithm>
#include <utility>

#include "forms/LinesKeeper.h"
#include "forms/WizardCombo.h"
#include "forms/WizardLayout.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "ui/FieldPopup.h"
#include "ui/FormPlace.h"
#include "ui/MessageBox.h"
#include "ui/QtStrings.h"
#include "ui/RichTextBox.h"
#include "ui/WaitCursor.h"
#include "wizards/LinePlace.h"

namespace klt {
namespace {

constexpr char kUnwritten[] = " have not been written!\nSave changes?";

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
    setWindowModality(isModeless() ? Qt::NonModal : Qt::ApplicationModal);
    layOut(*this, *wizard_, controls_);
    if (wizard_->opening().mode == OpeningMode::Insert) fillLists();
    const auto box = wizard_->table().box;
    if (!box.empty()) wizard_->attach(field(box));
    wire();
    showState();
    if (!box.empty() && services_.keeper)
        services_.keeper->watch(field(box), wizard_->table().title,
                                [this] { return wizard_->hasUnwritten(); });
}

bool WizardForm::isModeless() const {
    return !wizard_->table().box.empty() && wizard_->opening().mode == OpeningMode::Edit;
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
        } else if (auto* text = qobject_cast<RichTextBox*>(&control.widget)) {
            connect(text, &RichTextBox::Change, this, [this, name] { changed(name); });
        }
    }
    if (!wizard_->table().box.empty()) wireBox(field(wizard_->table().box));
}

void WizardForm::wireBox(RichTextBox& box) {
    addBoxPopup(box, [this] { takeBack(); });
    auto* key = new QShortcut(Qt::CTRL | Qt::Key_L, &box);
    key->setContext(Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, [this] { takeBack(); });
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
            return onClick([this, &row] { press(row.name); });
    }
}

void WizardForm::showState() {
    const QScopedValueRollback showing(isShowing_, true);
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
        // The base class would make it no larger than two thirds of the screen.
        resize(sizeHint());
        focusFirst();
        moveToPlace();
    }
    QDialog::setVisible(visible);
    // The base class selects what a combo holds, and no field's text.
    const auto* combo = qobject_cast<QComboBox*>(focusWidget());
    if (isFirst && combo != nullptr && combo->isEditable()) combo->lineEdit()->home(false);
}

/// The wizard of the same kind over which this one was opened; null where there is none.
const WizardForm* WizardForm::outerOfKind() const {
    for (const auto* owner = parentWidget(); owner; owner = owner->parentWidget()) {
        const auto* form = qobject_cast<const WizardForm*>(owner);
        if (form && &form->wizard_->table() == &wizard_->table()) return form;
    }
    return nullptr;
}

void WizardForm::moveToPlace() {
    if (const auto* outer = outerOfKind()) return placeOver(*this, *outer);
    if (const auto* position = settings::windowPosition(wizard_->table().form))
        restorePosition(*this, services_.store, *position);
}

void WizardForm::done(int result) {
    const auto* position = settings::windowPosition(wizard_->table().form);
    if (position && !outerOfKind()) storePosition(*this, services_.store, *position);
    keepLines(result != Accepted);
    QDialog::done(result);
}

/// The lines collected are written, or go with the form.
void WizardForm::keepLines(bool areLost) {
    const auto box = wizard_->table().box;
    if (box.empty() || !services_.keeper) return;
    if (areLost && wizard_->hasUnwritten()) {
        services_.keeper->leave(field(box));
    } else {
        services_.keeper->drop(field(box));
    }
}

void WizardForm::click(std::string_view control, int state) {
    wizard_->click(control, state);
    showState();
    for (const WizardControl& each : controls_.controls)
        if (each.row.sectionChosenBy == control) emit field(each.row.name).Change();
    const PlaceRow* const place = wizard_->place();
    if (place != nullptr && place->option == control) scrollToPlace();
}

void WizardForm::changed(std::string_view control) {
    // What the wizard itself has set is no change by the user.
    if (isShowing_) return;
    const auto result = wizard_->changed(control);
    if (result.isFollowed) showState();
    if (result.complaint) complain(*result.complaint);
}

void WizardForm::press(std::string_view button) {
    const auto result = wizard_->press(button, readLineBreakLimits(services_.store));
    showState();
    for (const Complaint& complaint : result.complaints) complain(complaint);
    if (result.preview)
        MessageBox(this, result.preview->text, MessageIcon::Information, result.preview->title);
    if (result.call) services_.showItemWizard(*this, *result.call);
    focusOn(result.focus);
    if (auto* text = qobject_cast<RichTextBox*>(focusWidget())) text->SetSelStart(0);
}

void WizardForm::takeBack() {
    const LineTab* const tab = wizard_->takeBack();
    if (tab == nullptr) return;
    showState();
    QWidget& page = showPage(widget(tab->add));
    for (const WizardControl& control : controls_.controls)
        if (page.isAncestorOf(&control.widget) && takesFocus(control.widget))
            return control.widget.setFocus();
}

QWidget& WizardForm::showPage(QWidget& widget) {
    auto* tabs = findChild<QTabWidget*>();
    for (int i = 0; tabs != nullptr && i < tabs->count(); ++i) {
        if (!tabs->widget(i)->isAncestorOf(&widget)) continue;
        tabs->setCurrentIndex(i);
        return *tabs->widget(i);
    }
    return *this;
}

void WizardForm::focusOn(std::string_view control) {
    if (control.empty()) return;
    showPage(widget(control));
    widget(control).setFocus();
}

bool WizardForm::takesFocus(const QWidget& widget) const {
    return widget.isEnabled() && widget.isVisibleTo(this);
}

bool WizardForm::mayClose() {
    if (!isModeless() || !wizard_->hasUnwritten()) return true;
    showNormal();
    activateWindow();
    const auto answer = MessageBox(
        this, "The lines of the " + std::string(wizard_->table().title) + kUnwritten,
        MessageIcon::Exclamation, kTitle, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes) finish();
    return answer == QMessageBox::No || !isVisible();
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
            keepLines(false);
            // Where lines are collected, the next ones get a heading first.
            return result.focus.empty() || !wizard_->table().box.empty() ? focusFirst()
                                                                         : focusOn(result.focus);
        case DoneResult::Kind::Closes:
            return accept();
    }
}

void WizardForm::complain(const Complaint& complaint) {
    MessageBox(this, complaint.message, MessageIcon::Exclamation, kTitle);
    focusOn(complaint.focus);
}

void WizardForm::focusFirst() {
    for (const WizardControl& control : controls_.controls) {
        if (takesFocus(control.widget)) return control.widget.setFocus();
    }
}

AreaLookup lookupOf(RichTextBox& box) {
    return [found = QPointer(&box)]() -> TextArea* { return found; };
}

}  // namespace klt
