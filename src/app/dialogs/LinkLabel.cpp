#include "app/dialogs/LinkLabel.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace klt {

LinkLabel::LinkLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
    setTextFormat(Qt::PlainText);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

bool LinkLabel::event(QEvent* event) {
    const bool isTaken = QLabel::event(event);
    switch (event->type()) {
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            showState();
            break;
        default:
            break;
    }
    return isTaken;
}

void LinkLabel::showState() {
    setForegroundRole(underMouse() || hasFocus() ? QPalette::Link : QPalette::WindowText);
    QFont shown = font();
    shown.setUnderline(hasFocus());
    setFont(shown);
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            // The dialog's default button must not be pressed too.
            emit clicked();
            break;
        default:
            QLabel::keyPressEvent(event);
    }
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
}

}  // namespace klt
