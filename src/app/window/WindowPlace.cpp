#include "app/window/WindowPlace.h"

#include <QWidget>

#include "settings/Catalogue.h"
#include "ui/FormPlace.h"

namespace klt {
namespace {

enum State { Normal = 0, Minimised = 1, Maximised = 2 };

}  // namespace

void restorePlace(QWidget& window, Store& store) {
    const int state = readSetting(store, settings::kWindowState);
    const QRect stored(storedPixels(store, settings::kLeft), storedPixels(store, settings::kTop),
                       storedPixels(store, settings::kWidth), storedPixels(store, settings::kHeight));
    const QRect place = placeOnScreens(stored);
    // One that has to grow when it is shown would lose its frame's place.
    window.resize(place.size().expandedTo(window.minimumSizeHint()));
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
        storePosition(window, store, {settings::kTop, settings::kLeft});
        storePixels(store, settings::kHeight, window.height());
        storePixels(store, settings::kWidth, window.width());
        return true;
    });
}

}  // namespace klt
