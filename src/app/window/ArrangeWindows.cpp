#include "app/window/ArrangeWindows.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>
#include <algorithm>

namespace klt {
namespace {

/// Edge `index` of `count` equal parts, which use up every pixel.
int edge(int length, int index, int count) {
    return length * index / count;
}

QRect row(const QRect& area, int index, int count) {
    const int top = edge(area.height(), index, count);
    return {area.left(), area.top() + top, area.width(), edge(area.height(), index + 1, count) - top};
}

QRect column(const QRect& area, int index, int count) {
    const int left = edge(area.width(), index, count);
    return {area.left() + left, area.top(), edge(area.width(), index + 1, count) - left, area.height()};
}

/// How many cascades beside each other there have to be, so that the lowest window of each has some height;
/// where they would be too narrow, so that each title is in view.
int cascades(const QSize& area, int count, int step) {
    constexpr int kRoomyHeight = 4, kRoomyWidth = 6;
    const auto needed = [&](int steps) {
        const int more = step > 0 ? std::max(area.height() / step - steps, 0) : 0;
        return (count + more) / (more + 1);
    };
    const int roomy = needed(kRoomyHeight);
    return area.width() / roomy >= kRoomyWidth * step ? roomy : needed(1);
}

/// Window `index` of a cascade of `count`, three quarters of the area where the others leave them.
QRect cascaded(const QRect& area, int index, int count, int step) {
    // A title is reached where it stands lower, so in a long cascade it stands hardly further right.
    const int aside = std::min(step, area.width() / 4 / std::max(count - 1, 1));
    const QSize room = area.size() - QSize(aside, step) * (count - 1);
    return {area.topLeft() + QPoint(aside, step) * index, room.boundedTo(area.size() * 3 / 4)};
}

QRect cascaded(const QRect& area, int index, int count, int step, int beside) {
    const int inOne = (count + beside - 1) / beside;
    return cascaded(column(area, index / inOne, beside), index % inOne, inOne, step);
}

QList<QMdiSubWindow*> windows(const QMdiArea& area, bool minimised, QMdiArea::WindowOrder order) {
    auto all = area.subWindowList(order);
    all.removeIf([minimised](const QMdiSubWindow* window) { return window->isMinimized() != minimised; });
    return all;
}

/// What the minimised windows leave free.
QRect areaAboveIcons(const QMdiArea& area) {
    QRect free = area.viewport()->rect();
    for (const auto* icon : windows(area, true, QMdiArea::CreationOrder))
        free.setBottom(std::min(free.bottom(), icon->geometry().top() - 1));
    return free.isEmpty() ? area.viewport()->rect() : free;
}

}  // namespace

std::vector<QRect> windowPlaces(Arrangement arrangement, const QRect& area, int count, int step) {
    std::vector<QRect> places;
    for (int index = 0; index < count; ++index) {
        switch (arrangement) {
            case Arrangement::TileHorizontally:
                places.push_back(row(area, index, count));
                break;
            case Arrangement::TileVertically:
                places.push_back(column(area, index, count));
                break;
            case Arrangement::Cascade:
                places.push_back(cascaded(area, index, count, step, cascades(area.size(), count, step)));
                break;
        }
    }
    return places;
}

std::vector<QRect> iconPlaces(const QRect& area, const QSize& size, int count) {
    const int inRow = std::max(area.width() / std::max(size.width(), 1), 1);
    std::vector<QRect> places;
    for (int index = 0; index < count; ++index) {
        const QPoint corner(area.left() + index % inRow * size.width(),
                            area.top() + area.height() - (index / inRow + 1) * size.height());
        places.emplace_back(corner, size);
    }
    return places;
}

void arrangeWindows(QMdiArea& area, Arrangement arrangement) {
    auto* active = area.activeSubWindow();
    if (!windows(area, true, QMdiArea::CreationOrder).isEmpty()) arrangeIcons(area);
    // In a cascade the active one has to come last, where nothing lies over it.
    const auto order =
        arrangement == Arrangement::Cascade ? QMdiArea::StackingOrder : QMdiArea::CreationOrder;
    const auto arranged = windows(area, false, order);
    const int step = area.style()->pixelMetric(QStyle::PM_TitleBarHeight) +
                     area.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const auto places =
        windowPlaces(arrangement, areaAboveIcons(area), static_cast<int>(arranged.size()), step);
    for (qsizetype index = 0; index < arranged.size(); ++index) {
        arranged[index]->showNormal();
        arranged[index]->setGeometry(places[static_cast<size_t>(index)]);
    }
    if (active) area.setActiveSubWindow(active);
}

void arrangeIcons(QMdiArea& area) {
    const auto icons = windows(area, true, QMdiArea::CreationOrder);
    if (icons.isEmpty()) return;
    const auto places =
        iconPlaces(area.viewport()->rect(), icons.first()->size(), static_cast<int>(icons.size()));
    for (qsizetype index = 0; index < icons.size(); ++index)
        icons[index]->setGeometry(places[static_cast<size_t>(index)]);
}

}  // namespace klt
