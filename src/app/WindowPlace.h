#pragma once

#include <QRect>
#include <QSize>
#include <vector>

class QWidget;

namespace klt {

class Store;

/// Lengths of windows are stored in twips, 1440 to the inch of a display of 96 dpi.
inline constexpr int kTwipsPerPixel = 15;

/// Gives the window the place and the state that section "KLTEditor" remembers, without showing it. Top and
/// left are the frame's, height and width the client's; absurd values are bounded, and a place off every
/// screen moves onto the nearest one.
void restorePlace(QWidget& window, Store& store);

/// Remembers the window's state and, unless it is maximised, its place.
void storePlace(const QWidget& window, Store& store);

/// `place` made to fit: no larger than the nearest of `screens`, and so much of it on one that it can be
/// reached. Without screens it comes back as it is.
QRect placeOnScreens(QRect place, const std::vector<QRect>& screens);

}  // namespace klt
