#include "app/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "settings/Catalogue.h"

namespace klt {
namespace {

// As much of a window's title must be on a screen to take hold of it.
constexpr QSize kGrip{64, 24};
constexpr QSize kSmallest{160, 120};

enum State { Normal = 0, Minimised = 1, Maximised = 2 };

int storedPixels(Store& store, const NumberSetting& setting) {
    return readSetting(store, setting) / kTwipsPerPixel;
}

void storePixels(Store& store, const NumberSetting& setting, int pixels) {
    writeSetting(store, setting, pixels * kTwipsPerPixel);
}

int distance(int from, int length, int start, int end) {
    return std::max({0, start - (from + length), from - end});
}

int distance(const QRect& place, const QRect& screen) {
    return distance(place.x(), place.width(), screen.x(), screen.x() + screen.width()) +
           distance(place.y(), place.height(), screen.y(), screen.y() + screen.height());
}

}  // namespace

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

void restorePlace(QWidget& window, Store& store) {
    const int state = readSetting(store, settings::kWindowState);
    const QRect stored(storedPixels(store, settings::kLeft), storedPixels(store, settings::kTop),
                       storedPixels(store, settings::kWidth), storedPixels(store, settings::kHeight));
    std::vector<QRect> screens;
    for (const auto* screen : QGuiApplication::screens()) screens.push_back(screen->availableGeometry());
    const QRect place = placeOnScreens(stored, screens);
    window.resize(place.size());
    window.move(place.topLeft());
    if (state == Minimised) window.setWindowState(Qt::WindowMinimized);
    if (state == Maximised) window.setWindowState(Qt::WindowMaximized);
}

void storePlace(const QWidget& window, Store& store) {
    const State state = window.isMinimized() ? Minimised : window.isMaximized() ? Maximised : Normal;
    store.together([&] {
        writeSetting(store, settings::kWindowState, state);
        // One that was minimised from its maximised state has that geometry still.
        if ((window.windowState() & Qt::WindowMaximized) != 0) return true;
        // Wayland gives no positions; 0 would stand for every place.
        if (!QGuiApplication::platformName().startsWith("wayland")) {
            storePixels(store, settings::kTop, window.y());
            storePixels(store, settings::kLeft, window.x());
        }
        storePixels(store, settings::kHeight, window.height());
        storePixels(store, settings::kWidth, window.width());
        return true;
    });
}

}  // namespace klt
