#pragma once

#include <QRect>
#include <vector>

class QMdiArea;

namespace klt {

enum class Arrangement { TileHorizontally, TileVertically, Cascade };

/// The places of `count` windows in `area`, in pixels: rows of its full width, columns of its full height, or
/// windows of three quarters of it, each `step` further down and to the right of the one before. Where that
/// takes more room than there is, they are smaller, and there are several such cascades beside each other: no
/// window covers the topmost `step` of another wholly.
std::vector<QRect> windowPlaces(Arrangement arrangement, const QRect& area, int count, int step);

/// The places of `count` minimised windows of one size: rows from the left along the bottom, the further
/// rows above.
std::vector<QRect> iconPlaces(const QRect& area, const QSize& size, int count);

/// Arranges the windows that are not minimised, those that are maximised too, above the minimised ones. The
/// active one stays active.
void arrangeWindows(QMdiArea& area, Arrangement arrangement);
/// Lines the minimised windows up.
void arrangeIcons(QMdiArea& area);

}  // namespace klt
