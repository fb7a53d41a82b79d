#include "app/menus/CommandIcons.h"

#include <QPalette>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "app/menus/DimmableIcon.h"

namespace klt {
namespace {

struct Image {
    const char* key;
    const char* icon;
};

constexpr std::array kImages = {
    Image{"F1", "document-new"},
    Image{"F2", "document-open"},
    Image{"F3", "document-close"},
    Image{"F4", "document-save"},
    Image{"F6", "application-exit"},
    Image{"E1", "edit-undo"},
    Image{"E2", "edit-cut"},
    Image{"E3", "edit-copy"},
    Image{"E4", "edit-paste"},
    Image{"E5", "edit-delete"},
    Image{"E6", "document-edit"},
    Image{"E8", "edit-find"},
    Image{"E9", "edit-find-replace"},
    Image{"I1", "games-achievements"},
    Image{"I2", "tools"},
    Image{"I3", "tools-wizard"},
    Image{"I4", "view-statistics"},
    Image{"I5", "list-add"},
    Image{"I6", "object-group"},
    Image{"I7", "format-number-percent"},
    Image{"I8", "user-identity"},
    Image{"I9", "package"},
    Image{"I10", "insert-footnote"},
    Image{"I11", "edit-comment"},
    Image{"T1", "configure"},
    Image{"T2", "document-open-folder"},
    Image{"T3", "user-group-properties"},
    Image{"T4", "format-text-color"},
    Image{"T5", "merge"},
    Image{"T6", "tools-check-spelling"},
    Image{"W1", "view-split-top-bottom"},
    Image{"W2", "view-split-left-right"},
    Image{"W3", "view-pages-overview"},
    Image{"W5", "go-previous"},
    Image{"W6", "go-next"},
    Image{"W7", "tools-check-spelling"},
    Image{"H1", "help-contents"},
    Image{"H2", "help-whatsthis"},
    Image{"H3", "help-hint"},
    Image{"H4", "globe"},
    Image{"H5", "globe"},
    Image{"H6", "globe"},
    Image{"H7", "globe"},
    Image{"H8", "globe"},
    Image{"H9", "globe"},
};

constexpr int kMiddleLightness = 128;

/// Not every platform of Qt knows where the desktop's icons are.
void addIconFolders() {
    QStringList folders = QIcon::themeSearchPaths();
    folders += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, "icons",
                                         QStandardPaths::LocateDirectory);
    folders.removeDuplicates();
    QIcon::setThemeSearchPaths(folders);
}

}  // namespace

QIcon commandIcon(QStringView key) {
    const auto* image = std::find_if(kImages.begin(), kImages.end(),
                                     [key](const Image& it) { return key == QLatin1String(it.key); });
    return image == kImages.end() ? QIcon() : dimmableIcon(image->icon);
}

void useIconsFor(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Window).lightness() < kMiddleLightness;
    addIconFolders();
    QIcon::setThemeName(dark ? "breeze-dark" : "breeze");
}

}  // namespace klt
