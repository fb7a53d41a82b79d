#pragma once

#include <QIcon>
#include <QString>

namespace klt {

/// The desktop's icon of that name, which pales where it is disabled. What styles make of such an icon by
/// themselves is made for dark ones: on a dark bar it looks as if it could be pressed.
QIcon dimmableIcon(const QString& name);

}  // namespace klt
