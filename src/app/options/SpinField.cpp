#include "app/options/SpinField.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolButton>
#include <QValidator>
#include <QWheelEvent>
#include <algorithm>
#include <limits>
#include <utility>

#include "platform/ProgramNames.h"
#include "ui/FieldPopup.h"
#include "ui/MessageBox.h"
#include "ui/Named.h"

namespace klt {
namespace {

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// Typed blanks do not come so far: those that do were pasted or dropped.
class Digits : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& caret) const override {
        const QString inside = text.trimmed();
        const auto cut = inside.isEmpty() ? text.size() : text.indexOf(inside);
        caret = std::clamp(caret - static_cast<int>(cut), 0, static_cast<int>(inside.size()));
        text = inside;
        return std::all_of(text.begin(), text.end(), isDigit) ? Acceptable : Invalid;
    }
};

bool printsNoDigit(const QKeyEvent& event) {
    constexpr auto kChord = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !(event.modifiers() & kChord) && !text.isEmpty() && text[0].isPrint() && !isDigit(text[0]);
}

bool comesBack(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

/// More than any limit where the text is too long to be a number.
int numberOf(const QString& text) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? number : std::numeric_limits<int>::max();
}

}  // namespace

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) {
    constexpr char kWidest[] = "000000";
    addFieldPopup(*this);
    setValidator(new Digits(this));
    setFixedWidth(fontMetrics().horizontalAdvance(kWidest) + 2 * fontMetrics().averageCharWidth());
    connect(this, &QLineEdit::inputRejected, this, [] { QApplication::beep(); });
}

void NumberEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Backspace && !printsNoDigit(*event)) return QLineEdit::keyPressEvent(event);
    event->accept();
    QApplication::beep();
}

void NumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!std::exchange(isEntered_, true)) emit entered();
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (comesBack(event->reason())) return;
    emit left();
    isEntered_ = false;
}

SpinBar::SpinBar(QWidget* parent) : QAbstractSlider(parent) {
    setOrientation(Qt::Vertical);
    setInvertedControls(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    up_ = addArrow("Up", Qt::UpArrow, SliderSingleStepSub);
    down_ = addArrow("Down", Qt::DownArrow, SliderSingleStepAdd);
}

QToolButton* SpinBar::addArrow(const char* name, Qt::ArrowType arrow, SliderAction action) {
    auto* button = named<QToolButton>(name);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    // The bar takes the focus of a click.
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    button->setFixedWidth(fontMetrics().height());
    button->setAccessibleName(name);
    connect(button, &QToolButton::clicked, this, [this, action] { triggerAction(action); });
    layout()->addWidget(button);
    return button;
}

void SpinBar::sliderChange(SliderChange change) {
    QAbstractSlider::sliderChange(change);
    if (down_ == nullptr) return;
    up_->setEnabled(value() > minimum());
    down_->setEnabled(value() < maximum());
}

void SpinBar::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) return QAbstractSlider::wheelEvent(event);
    event->ignore();
}

void SpinBar::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    QStylePainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

SpinField::SpinField(const Row& row, QWidget* parent)
    : QWidget(parent), row_(row), field_(named<NumberEdit>(row.field)), bar_(named<SpinBar>(row.bar)) {
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    line->addWidget(field_);
    line->addWidget(bar_);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    bar_->setRange(row.leastPosition, row.limit);
    connect(field_, &NumberEdit::entered, this, [this] { before_ = field_->text(); });
    connect(field_, &NumberEdit::left, this, &SpinField::settle);
    connect(field_, &QLineEdit::textChanged, this, &SpinField::textChanged);
    connect(bar_, &QAbstractSlider::valueChanged, this,
            [this](int position) { field_->setText(QString::number(row_.limit - position)); });
}

int SpinField::value() const {
    return numberOf(field_->text().isEmpty() ? before_ : field_->text());
}

void SpinField::setValue(int value) {
    value = std::clamp(value, 0, row_.largest());
    if (field_->text().isEmpty() || value != this->value()) field_->setText(QString::number(value));
}

void SpinField::settle() {
    if (field_->text().isEmpty()) field_->setText(before_);
}

void SpinField::setAccessibleName(const QString& name) {
    field_->setAccessibleName(name);
    bar_->setAccessibleName(name);
}

void SpinField::textChanged() {
    emit edited();
    if (field_->text().isEmpty()) return;
    if (value() > row_.largest()) {
        const QPointer self(this);
        MessageBox(window(), row_.tooLarge, MessageIcon::Information, kTitle);
        // That is a change of its own.
        if (self) field_->setText(QString::number(row_.largest()));
        return;
    }
    {
        const QSignalBlocker silent(bar_);
        bar_->setValue(row_.limit - value());
    }
    if (row_.caretGoes) field_->end(false);
    emit valueChanged(value());
}

}  // namespace klt
