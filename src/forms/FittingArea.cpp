#include "forms/FittingArea.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>

namespace klt {
namespace {

// What a form has around it: its own buttons, margins and the window's frame.
constexpr QSize kAround(60, 110);

}  // namespace

FittingArea::FittingArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    // By itself it would be a stop of the Tab key.
    setFocusPolicy(Qt::NoFocus);
}

QSize FittingArea::sizeHint() const {
    return onScreen(widget()->sizeHint());
}

QSize FittingArea::minimumSizeHint() const {
    return onScreen(widget()->minimumSizeHint());
}

/// A bar that scrolls one way takes room the other way.
QSize FittingArea::onScreen(QSize wanted) const {
    const QSize most = screen()->availableSize() - kAround;
    const bool isTooHigh = wanted.height() > most.height(), isTooWide = wanted.width() > most.width();
    if (isTooHigh) wanted.rwidth() += verticalScrollBar()->sizeHint().width();
    if (isTooWide) wanted.rheight() += horizontalScrollBar()->sizeHint().height();
    return wanted.boundedTo(most);
}

bool FittingArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace klt
