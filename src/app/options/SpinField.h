#pragma once

#include <QAbstractSlider>
#include <QLineEdit>
#include <QWidget>
#include <string_view>

class QToolButton;

namespace klt {

/// A line for a number: digits alone come in, and pasted text may have blanks around them. Any other printed
/// character, and Backspace, does nothing but beep. All other keys work as in any line.
class NumberEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit NumberEdit(QWidget* parent = nullptr);

    /// Whether the focus is here, or will come back here from another window.
    bool isEntered() const { return isEntered_; }

signals:
    void entered();
    void left();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool isEntered_ = false;
};

/// Two arrows, one above the other, that move a position: the upper one towards the least. With the focus,
/// keys and the wheel move it too.
class SpinBar : public QAbstractSlider {
public:
    explicit SpinBar(QWidget* parent = nullptr);

protected:
    void sliderChange(SliderChange change) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* addArrow(const char* name, Qt::ArrowType arrow, SliderAction action);

    QToolButton* up_ = nullptr;
    QToolButton* down_ = nullptr;
};

/// A number with a bar beside it that runs the other way: the number is a limit less the bar's position.
class SpinField : public QWidget {
    Q_OBJECT

public:
    struct Row {
        const char* field;
        const char* bar;
        int limit;
        int leastPosition;
        /// What is told of a number that is too large; the largest then takes its place.
        std::string_view tooLarge;
        /// After a change the caret goes to the end.
        bool caretGoes = true;

        constexpr int largest() const { return limit - leastPosition; }
    };

    explicit SpinField(const Row& row, QWidget* parent = nullptr);

    NumberEdit& field() { return *field_; }
    /// The number; where none stands there, the one that stood there when the focus came.
    int value() const;
    /// A number outside the bar's range becomes the nearest inside, and nothing is told of it.
    void setValue(int value);
    /// Where no number stands, the one that stood there when the focus came stands there again.
    void settle();
    void setAccessibleName(const QString& name);

signals:
    /// The text changed, by whatever hand, a number or none.
    void edited();
    /// There is a number, by whatever hand.
    void valueChanged(int value);

private:
    void textChanged();

    const Row row_;
    NumberEdit* const field_;
    SpinBar* const bar_;
    QString before_;
};

}  // namespace klt
