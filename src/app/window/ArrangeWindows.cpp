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

QRect cascaded(const QRect& area, int index, int step) {
    const QSize size = area.size() * 3 / 4;
    const QSize room = area.size() - size;
    const int steps = std::max(std::min(room.width(), room.height()) / std::max(step, 1), 0) + 1;
    return {area.topLeft() + QPoint(step, step) * (index % steps), size};
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
                places.push_back(cascaded(area, index, step));
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
    const int step = area.style()->pixelMetric(QStyle::PM_TitleBarHeight);
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
