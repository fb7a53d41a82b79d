#pragma once

#include <QLabel>

namespace klt {

/// A tip in a small window of its own that says why a text is in error. It goes at the next key, click or
/// turn of the wheel, and with the window.
class ErrorTip : public QLabel {
    Q_OBJECT

public:
    /// Whose tip it is: one that goes with the mouse as well is the box's to hide.
    enum class Owner { Keyboard, Mouse };

    explicit ErrorTip(QWidget& box);

    /// Shows it below `place`, in pixels of the screen; above it where there is no room.
    void showBelow(const QRect& place, const QString& text, Owner owner);
    Owner owner() const { return owner_; }

    bool eventFilter(QObject* receiver, QEvent* event) override;

protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPoint placeFor(const QRect& place) const;

    Owner owner_ = Owner::Keyboard;
};

}  // namespace klt
