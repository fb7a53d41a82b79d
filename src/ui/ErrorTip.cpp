#include "ui/ErrorTip.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>
#include <algorithm>
#include <tuple>

#include "ui/AccessOnDemand.h"

namespace klt {
namespace {

/// To assistive tools a label of ours is a text like any other.
QAccessibleInterface* asToolTip(const QString&, QObject* object) {
    auto* const tip = qobject_cast<ErrorTip*>(object);
    return tip ? new QAccessibleWidget(tip, QAccessible::ToolTip) : nullptr;
}

}  // namespace

ErrorTip::ErrorTip(QWidget& box) : QLabel(&box, Qt::ToolTip) {
    setObjectName("ErrorTip");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    static const bool isToldOf = (QAccessible::installFactory(asToolTip), true);
    std::ignore = isToldOf;
    setMargin(2 + style()->pixelMetric(QStyle::PM_ToolTipLabelFrameWidth, nullptr, this));
}

void ErrorTip::showBelow(const QRect& place, const QString& text, Owner owner) {
    owner_ = owner;
    // The desktop's may have changed since it was shown last.
    setPalette(QToolTip::palette());
    setFont(QToolTip::font());
    setText(text);
    setAccessibleName(text);
    adjustSize();
    setGeometry({placeFor(place), size()});
    show();
    raise();
    // Once, however often it is shown.
    QCoreApplication::instance()->removeEventFilter(this);
    QCoreApplication::instance()->installEventFilter(this);
    if (!somebodyListens()) return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QPoint ErrorTip::placeFor(const QRect& place) const {
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (!screen) screen = parentWidget()->screen();
    const QRect room = screen->availableGeometry();
    const bool fitsBelow = place.bottom() + height() <= room.bottom();
    const int top = fitsBelow ? place.bottom() + 1 : place.top() - height();
    return {std::max(room.left(), std::min(place.left(), room.right() - width() + 1)),
            std::max(room.top(), top)};
}

bool ErrorTip::eventFilter(QObject* receiver, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:  // all that comes of a key that is a shortcut
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
        case QEvent::WindowDeactivate:
            hide();
            break;
        case QEvent::FocusOut:
        case QEvent::Hide:
            if (receiver == parentWidget()) hide();
            break;
        default:
            break;
    }
    return false;
}

void ErrorTip::hideEvent(QHideEvent* event) {
    QCoreApplication::instance()->removeEventFilter(this);
    QLabel::hideEvent(event);
}

void ErrorTip::paintEvent(QPaintEvent* event) {
    {
        QStylePainter painter(this);
        QStyleOptionFrame option;
        option.initFrom(this);
        painter.drawPrimitive(QStyle::PE_PanelTipLabel, option);
    }
    QLabel::paintEvent(event);
}

}  // namespace klt
