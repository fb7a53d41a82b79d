#pragma once

#include <QBrush>
#include <QLineEdit>
#include <QStyledItemDelegate>

class QTableWidgetItem;

namespace klt {

/// The line of text that lies over the cell that is edited; hidden while none is.
class CellEdit : public QLineEdit {
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

signals:
    /// It has appeared over a cell, or is gone.
    void shown(bool isShown);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
};

/// Gives a cell the marking colour, which shows in every palette and while its row is selected, or takes it.
void markCell(QTableWidgetItem& cell, bool isMarked);
bool isMarkedCell(const QTableWidgetItem& cell);

/// How the cells of the authors are painted, and edited in place by one line of text. Enter and the loss of
/// the focus put its text into the cell, Escape drops it, Tab goes on to the next cell.
class AuthorCells : public QStyledItemDelegate {
public:
    /// `edit` is a child of the grid's viewport.
    explicit AuthorCells(CellEdit& edit, QObject* parent = nullptr);

    /// Puts the text of the cell that is edited into it; nothing where none is.
    void finishEditing();

    bool eventFilter(QObject* editor, QEvent* event) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    CellEdit& edit_;
};

}  // namespace klt
