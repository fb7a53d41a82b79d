#pragma once

#include <QColor>
#include <QIcon>

namespace klt {

/// A field of the colour, with an edge that stands out from the desktop's palette, sharp at every size.
QIcon colourIcon(const QColor& colour);

}  // namespace klt
