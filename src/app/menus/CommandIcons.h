#pragma once

#include <QIcon>
#include <QStringView>

class QPalette;

namespace klt {

/// The image that a command shows in its menu and on its toolbar; null for one that has none, and for a key
/// that is no command's. It follows `useIconsFor`.
QIcon commandIcon(QStringView key);

/// Has all icons by name come in the set that stands out from the palette's windows, dark or light.
void useIconsFor(const QPalette& palette);

}  // namespace klt
