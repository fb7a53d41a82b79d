#include "app/menus/CommandIcons.h"

#include <QPalette>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "app/menus/DimmableIcon.h"
#include "platform/CommandKeys.h"

namespace klt {
namespace {

struct Image {
    const char* key;
    const char* icon;
};

constexpr std::array kImages = {
    Image{commands::kNew, "document-new"},
    Image{commands::kOpen, "document-open"},
    Image{commands::kClose, "document-close"},
    Image{commands::kSave, "document-save"},
    Image{commands::kExit, "application-exit"},
    Image{commands::kUndo, "edit-undo"},
    Image{commands::kCut, "edit-cut"},
    Image{commands::kCopy, "edit-copy"},
    Image{commands::kPaste, "edit-paste"},
    Image{commands::kDelete, "edit-delete"},
    Image{commands::kEditLine, "document-edit"},
    Image{commands::kFind, "edit-find"},
    Image{commands::kReplace, "edit-find-replace"},
    Image{commands::kAdvantageWizard, "games-achievements"},
    Image{commands::kSkillWizard, "tools"},
    Image{commands::kSpellWizard, "tools-wizard"},
    Image{commands::kStatWizard, "view-statistics"},
    Image{commands::kBonusWizard, "list-add"},
    Image{commands::kGroupWizard, "object-group"},
    Image{commands::kModWizard, "format-number-percent"},
    Image{commands::kAuthorWizard, "user-identity"},
    Image{commands::kPackageWizard, "package"},
    Image{commands::kCommentLine, "insert-footnote"},
    Image{commands::kComment, "edit-comment"},
    Image{commands::kPreferences, "configure"},
    Image{commands::kProgramPaths, "document-open-folder"},
    Image{commands::kAuthorList, "user-group-properties"},
    Image{commands::kEditorFormat, "format-text-color"},
    Image{commands::kMerger, "merge"},
    Image{commands::kSyntaxChecker, "tools-check-spelling"},
    Image{commands::kTileHorizontally, "view-split-top-bottom"},
    Image{commands::kTileVertically, "view-split-left-right"},
    Image{commands::kCascade, "view-pages-overview"},
    Image{commands::kPreviousDocument, "go-previous"},
    Image{commands::kNextDocument, "go-next"},
    Image{commands::kCheckerWindow, "tools-check-spelling"},
    Image{commands::kContents, "help-contents"},
    Image{commands::kSearchHelp, "help-whatsthis"},
    Image{commands::kTips, "help-hint"},
    Image{commands::kHomePage, "globe"},
    Image{commands::kDataFilesPage, "globe"},
    Image{commands::kAddOnsPage, "globe"},
    Image{commands::kDocsPage, "globe"},
    Image{commands::kHarborPage, "globe"},
    Image{commands::kHarborPrograms, "globe"},
    Image{commands::kAbout, "help-about"},
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
