#pragma once

#include <QRect>
#include <vector>

#include "settings/Catalogue.h"

class QWidget;

namespace klt {

/// Lengths of windows are stored in twips, 1440 to the inch of a display of 96 dpi.
inline constexpr int kTwipsPerPixel = 15;

/// A stored length in pixels.
int storedPixels(Store& store, const NumberSetting& setting);
void storePixels(Store& store, const NumberSetting& setting, int pixels);

/// `place` made to fit: no larger than the nearest of `screens`, and so much of it on one that it can be
/// reached. Without screens it comes back as it is.
QRect placeOnScreens(QRect place, const std::vector<QRect>& screens);
/// The same with the screens that there are.
QRect placeOnScreens(QRect place);

/// Moves a window, its frame's corner counted, to where it stood last; off every screen it moves onto the
/// nearest one. Its size must be what it will be shown with.
void restorePosition(QWidget& window, Store& store, const WindowPosition& position);
/// The place of a window that opens over another one of its kind, both with their frames: `step` further down
/// and to the right, and back at the top or the left of the screen where it would reach out.
QRect placeOver(const QRect& outer, const QSize& size, int step, const QRect& screen);
/// Moves a window there, by the height of a title, before it is shown. Its size must be what it will be shown
/// with.
void placeOver(QWidget& window, const QWidget& outer);
/// Remembers where the window stands, on desktops that tell.
void storePosition(const QWidget& window, Store& store, const WindowPosition& position);

}  // namespace klt
