#include "forms/WizardCombo.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>

#include "settings/Catalogue.h"
#include "ui/QtStrings.h"
#include "wizards/ComboEntry.h"

namespace klt {
namespace {

constexpr int kCharactersShown = 16;

/// The key itself: what it stands for changes when Shift is let go in front of it.
quint32 numberOf(const QKeyEvent& event) {
    return event.nativeScanCode() != 0 ? event.nativeScanCode() : static_cast<quint32>(event.key());
}

/// Whether it is a command, as Ctrl+V; AltGr, which comes as both, types.
bool isChord(const QKeyEvent& event) {
    const auto held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return held != Qt::NoModifier && held != (Qt::ControlModifier | Qt::AltModifier);
}

bool isItemKey(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

/// UTF-16 units as bytes of UTF-8.
size_t bytes(const QString& text, qsizetype units) {
    return static_cast<size_t>(QStringView(text).left(units).toUtf8().size());
}

int units(std::string_view text) {
    return static_cast<int>(toQString(text).size());
}

ComboSelection selectionOf(const QLineEdit& edit) {
    const int start = edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
    return {bytes(edit.text(), start), static_cast<size_t>(edit.selectedText().toUtf8().size())};
}

}  // namespace

WizardCombo::WizardCombo(const ControlRow& row, ControlState& state, Store& store, const bool& isSuppressed,
                         QWidget* parent)
    : Combo(row.kind == ControlKind::List ? TypedText::None : TypedText::OneLine, parent),
      row_(row),
      state_(state),
      store_(store),
      isSuppressed_(isSuppressed) {
    setMinimumContentsLength(kCharactersShown);
    connect(this, &Combo::editTextChanged, this, [this](const QString& text) {
        state_.text = text.toStdString();
        state_.state = -1;
        emit stateChanged();
    });
    // The release of the arrow that chose the item would complete it to the first that begins like it.
    connect(this, &Combo::activated, this, [this] {
        if (isEditable()) lineEdit()->selectAll();
    });
}

void WizardCombo::leaveOldItem() {
    if (currentIndex() == state_.state) return;
    const QSignalBlocker quiet(this);
    const QString text = currentText();
    const int caret = isEditable() ? lineEdit()->cursorPosition() : 0;
    setCurrentIndex(state_.state);
    if (!isEditable()) return;
    setEditText(text);
    lineEdit()->setCursorPosition(caret);
}

void WizardCombo::showState() {
    const QSignalBlocker quiet(this);
    if (shown_ != state_.list) {
        clear();
        for (const auto& item : state_.list) addItem(toQString(item));
        shown_ = state_.list;
    }
    if (currentIndex() != state_.state) setCurrentIndex(state_.state);
    if (currentText() != toQString(state_.text)) setEditText(toQString(state_.text));
}

void WizardCombo::commit() {
    if (row_.kind != ControlKind::CategoryCombo) return;
    CommitComboEntry(state_);
    showState();
    emit stateChanged();
}

void WizardCombo::showPopup() {
    leaveOldItem();
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width());
    Combo::showPopup();
}

void WizardCombo::wheelEvent(QWheelEvent* event) {
    leaveOldItem();
    Combo::wheelEvent(event);
}

void WizardCombo::keyPressEvent(QKeyEvent* event) {
    // The window's, which turns a tab's page; a list would look for an item of that letter.
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (isTab && event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
    if (isItemKey(event->key())) leaveOldItem();
    const QString before = currentText();
    // The key itself then puts "(" in front of it.
    if (row_.pairsParentheses && event->text() == "(" && readSetting(store_, settings::kMatchParenthesis)) {
        lineEdit()->insert(")");
        lineEdit()->cursorBackward(false);
    }
    Combo::keyPressEvent(event);
    if (currentText() != before && !isChord(*event)) changingKeys_.insert(numberOf(*event));
}

void WizardCombo::keyReleaseEvent(QKeyEvent* event) {
    Combo::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && changingKeys_.erase(numberOf(*event)) > 0) complete();
}

void WizardCombo::focusOutEvent(QFocusEvent* event) {
    Combo::focusOutEvent(event);
    changingKeys_.clear();
    // The list that drops, and another window, leave the focus where it is.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) commit();
}

void WizardCombo::complete() {
    const bool completes = row_.kind == ControlKind::CategoryCombo || row_.kind == ControlKind::AutoCombo;
    if (!completes || isSuppressed_ || !readSetting(store_, settings::kAutoComplete)) return;
    auto selection = selectionOf(*lineEdit());
    if (!AutoComplete(state_, selection, row_.pairsParentheses)) return;
    showState();
    const std::string_view text = state_.text;
    lineEdit()->setSelection(units(text.substr(0, selection.start)),
                             units(text.substr(selection.start, selection.length)));
    emit stateChanged();
}

}  // namespace klt
