#pragma once

#include <QIcon>

namespace klt {

/// A page with coloured lines. Drawn, for reading an image costs a start more than all the rest of the icon.
QIcon programIcon();

}  // namespace klt
