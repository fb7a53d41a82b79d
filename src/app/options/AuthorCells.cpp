#include "app/options/AuthorCells.h"

#include <QKeyEvent>
#include <QTableWidgetItem>

namespace klt {
namespace {

constexpr QColor kMarking(0x00, 0xFF, 0xFF);

bool isEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isPopupOpening(const QEvent& event) {
    return event.type() == QEvent::FocusOut &&
           static_cast<const QFocusEvent&>(event).reason() == Qt::PopupFocusReason;
}

}  // namespace

void CellEdit::showEvent(QShowEvent* event) {
    QLineEdit::showEvent(event);
    emit shown(true);
}

void CellEdit::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    // Else all that it stands in is hidden, and may be going.
    if (isHidden()) emit shown(false);
}

void markCell(QTableWidgetItem& cell, bool isMarked) {
    cell.setBackground(isMarked ? QBrush(kMarking) : QBrush());
    cell.setForeground(isMarked ? QBrush(Qt::black) : QBrush());
}

bool isMarkedCell(const QTableWidgetItem& cell) {
    return cell.background() == QBrush(kMarking);
}

AuthorCells::AuthorCells(CellEdit& edit, QObject* parent) : QStyledItemDelegate(parent), edit_(edit) {}

void AuthorCells::finishEditing() {
    if (edit_.isHidden()) return;
    emit commitData(&edit_);
    emit closeEditor(&edit_);
}

bool AuthorCells::eventFilter(QObject* editor, QEvent* event) {
    if (isPopupOpening(*event)) return false;
    if (!isEnter(*event)) return QStyledItemDelegate::eventFilter(editor, event);
    finishEditing();
    return true;
}

QWidget* AuthorCells::createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex&) const {
    return &edit_;
}

void AuthorCells::destroyEditor(QWidget*, const QModelIndex&) const {
    // It is hidden by now, and serves for the next cell.
}

void AuthorCells::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                       const QModelIndex&) const {
    editor->setGeometry(option.rect);
}

void AuthorCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(Qt::BackgroundRole).isValid()) option->state &= ~QStyle::State_Selected;
}

}  // namespace klt
