#pragma once

class QWidget;

namespace klt {

class Store;

/// Gives the window the place and the state that section "KLTEditor" remembers, without showing it. Top and
/// left are the frame's, height and width the client's; absurd values are bounded, and a place off every
/// screen moves onto the nearest one.
void restorePlace(QWidget& window, Store& store);

/// Remembers the window's state and, unless it is maximised, its place.
void storePlace(const QWidget& window, Store& store);

}  // namespace klt
