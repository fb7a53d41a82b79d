#include "app/dialogs/GoToField.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>
#include <algorithm>

#include "app/dialogs/OutlineRows.h"
#include "text/Unicode.h"
#include "ui/FieldPopup.h"
#include "ui/FormPlace.h"
#include "ui/Named.h"
#include "ui/RichTextBox.h"

namespace klt {
namespace {

constexpr int kRows = 16;

long ask(const RichTextBox& box, unsigned what) {
    return box.SendScintilla(what);
}

}  // namespace

void showPlace(RichTextBox& box, TextRange place) {
    const auto shown = firstCharacters(box.Slice(place.start, place.end), OutlineRows::kMostShown);
    box.Select(place.start, static_cast<Position>(shown.size()));
    box.ScrollToLine(box.GetLineFromChar(place.start) - ask(box, RichTextBox::SCI_LINESONSCREEN) / 2);
    box.ScrollCaret();
}

GoToField::GoToField(RichTextBox& box)
    : QFrame(&box, Qt::Popup),
      box_(box),
      origin_{ask(box, RichTextBox::SCI_GETANCHOR), ask(box, RichTextBox::SCI_GETCURRENTPOS),
              box.FirstVisibleLine(), ask(box, RichTextBox::SCI_GETXOFFSET)},
      rows_(new OutlineRows(box.Text(), this)),
      field_(named<QLineEdit>("GoToText")),
      list_(named<QListView>("GoToList")) {
    setObjectName("GoTo");
    setAttribute(Qt::WA_DeleteOnClose);
    setAccessibleName("Go to");
    buildLayout();
    connect(field_, &QLineEdit::textChanged, this, &GoToField::typed);
    connect(list_, &QListView::clicked, this, [this] {
        showRow();
        jump();
    });
    // What the list shows is no more where it was.
    connect(&box, &RichTextBox::Change, this, [this] {
        list_->setModel(nullptr);
        leave();
    });
}

void GoToField::buildLayout() {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    field_->setPlaceholderText("Words of a name, or a line number");
    field_->setAccessibleName("Go to");
    addFieldPopup(*field_);
    list_->setModel(rows_);
    list_->setItemDelegate(new OutlineRowPainter(list_));
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setAccessibleName("Sections, subsections, packages and items");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->setSpacing(4);
    column->addWidget(field_);
    column->addWidget(list_, 1);
    setFocusProxy(field_);
}

void GoToField::open() {
    place();
    choose(rows_->lines().rowAt(origin_.caret));
    show();
    field_->setFocus(Qt::PopupFocusReason);
}

/// In the upper corner where lines end, so that their beginnings stay in view.
void GoToField::place() {
    constexpr int kNarrowest = 40, kWidest = 90;
    const int letter = fontMetrics().averageCharWidth();
    const int width = std::clamp(box_.width() / 2, kNarrowest * letter, kWidest * letter);
    const int rows = kRows * std::max(list_->sizeHintForRow(0), fontMetrics().height());
    const int height = sizeHint().height() - list_->sizeHint().height() + rows + 2 * list_->frameWidth();
    const QPoint corner = box_.mapToGlobal(QPoint(box_.viewport()->width() - width, 0));
    setGeometry(placeOnScreens(QRect(corner, QSize(width, height))));
}

void GoToField::typed() {
    const std::string text = field_->text().toStdString();
    const auto line = typedLine(text);
    rows_->filter(line ? std::string_view() : std::string_view(text));
    if (line) return showLine(*line);
    goBack();
    const bool isBlank = text.find_first_not_of(' ') == text.npos;
    if (isBlank) return choose(rows_->lines().rowAt(origin_.caret));
    if (rows_->rowCount() == 0) return;
    choose(0);
    showRow();
}

void GoToField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            return step(-1);
        case Qt::Key_Down:
            return step(1);
        case Qt::Key_PageUp:
            return step(1 - kRows);
        case Qt::Key_PageDown:
            return step(kRows - 1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return jump();
        case Qt::Key_Escape:
            close();
            return;
        default:
            return QFrame::keyPressEvent(event);
    }
}

/// Away from the chosen row, as far as the list goes. Without one the first step is to the first row.
void GoToField::step(int rows) {
    const int count = rows_->rowCount();
    if (count == 0) return;
    const auto chosen = list_->currentIndex();
    const int row = chosen.isValid() ? std::clamp(chosen.row() + rows, 0, count - 1) : 0;
    choose(static_cast<size_t>(row));
    showRow();
}

void GoToField::choose(std::optional<size_t> row) {
    if (!row) return;
    const auto index = rows_->index(static_cast<int>(*row));
    list_->setCurrentIndex(index);
    list_->scrollTo(index, QAbstractItemView::EnsureVisible);
    field_->setAccessibleDescription(index.data(Qt::AccessibleTextRole).toString());
}

void GoToField::showRow() {
    follow(rows_->lines().placeOf(static_cast<size_t>(list_->currentIndex().row())));
}

/// A number behind the last line's is the last line's.
void GoToField::showLine(Position line) {
    const Position index = std::clamp<Position>(line, 1, box_.LineCount()) - 1;
    const Position start = box_.LineIndex(index);
    const Position end = start + box_.LineLength(index);
    choose(rows_->lines().rowAt(end));
    follow({start, end});
}

void GoToField::follow(TextRange found) {
    target_ = found.start;
    showPlace(box_, found);
}

void GoToField::goBack() {
    target_.reset();
    const auto [start, end] = std::minmax(origin_.anchor, origin_.caret);
    box_.Select(start, end - start);
    if (origin_.caret < origin_.anchor)
        box_.SendScintilla(RichTextBox::SCI_SETSELECTION, static_cast<unsigned long>(origin_.caret),
                           origin_.anchor);
    box_.ScrollToLine(origin_.firstLine);
    box_.SendScintilla(RichTextBox::SCI_SETXOFFSET, static_cast<unsigned long>(origin_.xOffset));
}

/// Where nothing is found the field stays.
void GoToField::jump() {
    if (!target_ && rows_->rowCount() == 0) return;
    if (!target_) {
        close();
        return;
    }
    box_.SetSelStart(*target_);
    box_.ScrollCaret();
    leave();
    box_.setFocus();
}

void GoToField::leave() {
    staysThere_ = true;
    close();
}

void GoToField::closeEvent(QCloseEvent* event) {
    if (!staysThere_ && target_) goBack();
    QFrame::closeEvent(event);
}

}  // namespace klt
