#include "app/commands/WindowCommands.h"

#include <algorithm>

#include "app/documents/frmKLTEditor.h"
#include "app/window/frmMDIKLTEditor.h"
#include "settings/Catalogue.h"

namespace klt {

void activateDocument(frmMDIKLTEditor& window, int number) {
    const auto& documents = window.forms().documents();
    if (number < 1 || number > static_cast<int>(documents.size())) return;
    activateDocument(window, *documents[static_cast<size_t>(number - 1)]);
}

void activateDocument(frmMDIKLTEditor& window, frmKLTEditor& document) {
    if (!window.forms().contains(&document)) return;
    QWidget* frame = document.parentWidget();
    if (frame->isMinimized()) frame->showNormal();
    window.showDocument(document);
    // The click has moved the menu's check mark, perhaps to the wrong item.
    window.updateMenus();
}

void activateNeighbour(frmMDIKLTEditor& window, int steps) {
    const auto& documents = window.forms().documents();
    if (documents.empty()) return;
    const auto active = std::find(documents.begin(), documents.end(), window.ActiveForm());
    const auto count = static_cast<std::ptrdiff_t>(documents.size());
    const auto next = ((active - documents.begin() + steps) % count + count) % count;
    window.showDocument(*documents[static_cast<size_t>(next)]);
}

void toggleCheckerWindow(frmMDIKLTEditor& window, Store& store) {
    const bool isShown = readSetting(store, settings::kShowKLTCheckerWindow) == 1;
    writeSetting(store, settings::kShowKLTCheckerWindow, isShown ? 0 : 1);
    window.updateMenus();
}

void toggleBand(frmMDIKLTEditor& window, const char* band) {
    window.toolbars().showBand(band, !window.toolbars().isBandVisible(band));
    window.updateMenus();
}

}  // namespace klt
