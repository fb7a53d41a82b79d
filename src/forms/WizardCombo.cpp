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

int codeOf(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return kTabKey;
        case Qt::Key_Left:
            return kLeftKey;
        default:
            return 0;
    }
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

WizardCombo::WizardCombo(ControlKind kind, ControlState& state, Store& store, const bool& isSuppressed,
                         QWidget* parent)
    : Combo(kind == ControlKind::List ? TypedText::None : TypedText::OneLine, parent),
      kind_(kind),
      state_(state),
      store_(store),
      isSuppressed_(isSuppressed) {
    setMinimumContentsLength(kCharactersShown);
    connect(this, &Combo::editTextChanged, this, [this](const QString& text) {
        state_.text = text.toStdString();
        state_.state = -1;
    });
    // The release of the arrow that chose the item would complete it to the first that begins like it.
    connect(this, &Combo::activated, this, [this] {
        if (isEditable()) lineEdit()->selectAll();
    });
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
    if (kind_ != ControlKind::CategoryCombo) return;
    CommitComboEntry(state_);
    showState();
}

void WizardCombo::showPopup() {
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width());
    Combo::showPopup();
}

void WizardCombo::keyReleaseEvent(QKeyEvent* event) {
    Combo::keyReleaseEvent(event);
    if (!event->isAutoRepeat()) complete(codeOf(*event));
}

void WizardCombo::focusOutEvent(QFocusEvent* event) {
    Combo::focusOutEvent(event);
    // The list that drops, and another window, leave the focus where it is.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) commit();
}

void WizardCombo::complete(int keyCode) {
    const bool completes = kind_ == ControlKind::CategoryCombo || kind_ == ControlKind::AutoCombo;
    if (!completes || isSuppressed_ || !readSetting(store_, settings::kAutoComplete)) return;
    auto selection = selectionOf(*lineEdit());
    if (!AutoComplete(state_, selection, keyCode)) return;
    showState();
    const std::string_view text = state_.text;
    lineEdit()->setSelection(units(text.substr(0, selection.start)),
                             units(text.substr(selection.start, selection.length)));
}

}  // namespace klt
