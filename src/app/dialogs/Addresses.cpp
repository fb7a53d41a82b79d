#include "app/dialogs/Addresses.h"

#include <QDesktopServices>
#include <QUrl>

namespace klt {

void mailTo(const QString& address) {
    if (address.isEmpty()) return;
    QUrl url;
    url.setScheme("mailto");
    // What is typed is an address and nothing else: no "?" in it begins a subject or a copy.
    url.setPath(address);
    QDesktopServices::openUrl(url);
}

void openAddress(const QString& address) {
    if (!address.contains("://")) return mailTo(address);
    QDesktopServices::openUrl(QUrl(address));
}

}  // namespace klt
