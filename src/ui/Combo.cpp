#include "ui/Combo.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>
#include <limits>
#include <utility>

#include "ui/FieldPopup.h"

namespace klt {
namespace {

QString withLineEnds(QString text, TypedText typed) {
    static const QRegularExpression any("\r\n|\r|\n");
    return text.replace(any, typed == TypedText::Lines ? "\r\n" : " ");
}

/// Whether nothing came in, but a stretch went.
bool isDeletion(const QString& before, const QString& after) {
    if (after.size() >= before.size()) return false;
    const auto [rest, old] = std::ranges::mismatch(after, before);
    return before.endsWith(QStringView(rest, after.end()));
}

/// Shows each item in one line of the list, and no more of it than a screen is wide.
class ItemLine : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale&) const override {
        constexpr int kMost = 500;
        return withLineEnds(value.toString().left(kMost), TypedText::OneLine);
    }
};

}  // namespace

Combo::Combo(TypedText typed, QWidget* parent) : QComboBox(parent), typed_(typed) {
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // With its own policy the wheel would give it the focus first.
    setFocusPolicy(Qt::StrongFocus);
    setItemDelegate(new ItemLine(this));
    if (typed != TypedText::None) takeText();
    addFieldPopup(*this);
}

void Combo::takeText() {
    setEditable(true);
    setCompleter(nullptr);
    QLineEdit& edit = *lineEdit();
    edit.setMaxLength(std::numeric_limits<int>::max());
    // On these signals the base class would choose an item that equals the text.
    disconnect(&edit, &QLineEdit::editingFinished, this, nullptr);
    disconnect(&edit, &QLineEdit::returnPressed, this, nullptr);
    connect(&edit, &QLineEdit::textEdited, this, [this] { isEdit_ = true; });
    connect(&edit, &QLineEdit::textChanged, this, &Combo::changed);
}

void Combo::keyPressEvent(QKeyEvent* event) {
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    // The base class would look for an item that begins with it.
    if (isTab) return event->ignore();
    QComboBox::keyPressEvent(event);
}

void Combo::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) return QComboBox::wheelEvent(event);
    event->ignore();
}

void Combo::changed(const QString& text) {
    const bool isEdit = std::exchange(isEdit_, false);
    const QString before = std::exchange(before_, text);
    // A CR or LF that stands alone is just being deleted.
    if (!isEdit || isDeletion(before, text)) return;
    const QString wanted = withLineEnds(text, typed_);
    if (wanted == text) return;
    const auto caret = withLineEnds(text.left(lineEdit()->cursorPosition()), typed_).size();
    // As an edit, which can be undone.
    lineEdit()->selectAll();
    lineEdit()->insert(wanted);
    lineEdit()->setCursorPosition(static_cast<int>(caret));
}

}  // namespace klt
