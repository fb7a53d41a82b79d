#include "ui/FormPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace klt {
namespace {

// As much of a window's title must be on a screen to take hold of it.
constexpr QSize kGrip{64, 24};
constexpr QSize kSmallest{160, 120};

int distance(int from, int length, int start, int end) {
    return std::max({0, start - (from + length), from - end});
}

int distance(const QRect& place, const QRect& screen) {
    return distance(place.x(), place.width(), screen.x(), screen.x() + screen.width()) +
           distance(place.y(), place.height(), screen.y(), screen.y() + screen.height());
}

}  // namespace

int storedPixels(Store& store, const NumberSetting& setting) {
    return readSetting(store, setting) / kTwipsPerPixel;
}

void storePixels(Store& store, const NumberSetting& setting, int pixels) {
    writeSetting(store, setting, pixels * kTwipsPerPixel);
}

QRect placeOnScreens(QRect place, const std::vector<QRect>& screens) {
    if (screens.empty()) return place;
    const QRect& screen =
        *std::min_element(screens.begin(), screens.end(), [&place](const QRect& left, const QRect& right) {
            return distance(place, left) < distance(place, right);
        });
    QRect all;
    for (const QRect& one : screens) all |= one;
    const bool fits = place.width() <= all.width() && place.height() <= all.height();
    place.setSize(place.size().boundedTo(fits ? all.size() : screen.size()).expandedTo(kSmallest));
    const auto reachable = [&place](const QRect& one) {
        const QRect shared = QRect(place.topLeft(), QSize(place.width(), kGrip.height())).intersected(one);
        return shared.width() >= kGrip.width() && shared.height() >= kGrip.height();
    };
    if (std::any_of(screens.begin(), screens.end(), reachable)) return place;
    place.setSize(place.size().boundedTo(screen.size()).expandedTo(kSmallest));
    place.moveLeft(std::clamp(place.x(), screen.x(), screen.x() + screen.width() - place.width()));
    place.moveTop(std::clamp(place.y(), screen.y(), screen.y() + screen.height() - place.height()));
    return place;
}

QRect placeOnScreens(QRect place) {
    std::vector<QRect> screens;
    for (const auto* screen : QGuiApplication::screens()) screens.push_back(screen->availableGeometry());
    return placeOnScreens(place, screens);
}

void restorePosition(QWidget& window, Store& store, const WindowPosition& position) {
    const QPoint corner(storedPixels(store, position.left), storedPixels(store, position.top));
    window.move(placeOnScreens(QRect(corner, window.size())).topLeft());
}

QRect placeOver(const QRect& outer, const QSize& size, int step, const QRect& screen) {
    QRect place(outer.topLeft() + QPoint(step, step), size);
    if (place.bottom() > screen.bottom()) place.moveTop(screen.top());
    if (place.right() > screen.right()) place.moveLeft(screen.left());
    return place;
}

void placeOver(QWidget& window, const QWidget& outer) {
    const QSize frame = outer.frameGeometry().size() - outer.size();
    const int title = outer.geometry().top() - outer.frameGeometry().top();
    // Not every desktop tells of its frames.
    const int step = std::max(title, outer.style()->pixelMetric(QStyle::PM_TitleBarHeight));
    window.move(
        placeOver(outer.frameGeometry(), window.size() + frame, step, outer.screen()->availableGeometry())
            .topLeft());
}

void storePosition(const QWidget& window, Store& store, const WindowPosition& position) {
    // Wayland gives no positions; 0 would stand for every place.
    if (QGuiApplication::platformName().startsWith("wayland")) return;
    store.together([&] {
        storePixels(store, position.top, window.y());
        storePixels(store, position.left, window.x());
        return true;
    });
}

}  // namespace klt
