#pragma once

#include <QPointer>

namespace klt {

/// Shows a dialog that is made of `given` over `owner`, until it is closed. What it returns can be asked
/// until control is back in the event loop; null where the owner has taken it along.
template <typename Dialog, typename Given, typename Owner>
QPointer<Dialog> showDialog(Given& given, Owner& owner) {
    QPointer<Dialog> dialog = new Dialog(given, &owner);
    dialog->exec();
    if (dialog) dialog->deleteLater();
    return dialog;
}

}  // namespace klt
