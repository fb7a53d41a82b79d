#pragma once

#include <QString>

namespace klt {

/// Has the desktop write a mail to `address`; does nothing for an empty one.
void mailTo(const QString& address);

/// Has the desktop open a web address as it stands, and anything else as a mail address.
void openAddress(const QString& address);

}  // namespace klt
