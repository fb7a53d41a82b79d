#include "app/menus/MenuEntries.h"

#include <QAction>
#include <QMenu>

namespace klt {

QString latin(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

MenuEntries::MenuEntries(QMenu& menu, QAction* before) : menu_(menu), before_(before) {}

void MenuEntries::show(const std::vector<MenuEntry>& entries) {
    clear();
    for (const auto& entry : entries) add(entry);
    if (before_ && !entries.empty()) actions_.push_back(menu_.insertSeparator(before_));
}

/// The menu may be made again by what one of its entries does, so an action outlives its place here.
void MenuEntries::clear() {
    for (auto* action : actions_) {
        menu_.removeAction(action);
        action->setObjectName({});
        action->deleteLater();
    }
    actions_.clear();
}

void MenuEntries::add(const MenuEntry& entry) {
    auto* action = new QAction(entry.text, &menu_);
    action->setObjectName(entry.key);
    action->setEnabled(entry.enabled);
    action->setCheckable(entry.checked);
    action->setChecked(entry.checked);
    connect(action, &QAction::triggered, this, [this, key = entry.key] { emit MenuClick(key); });
    menu_.insertAction(before_, action);
    actions_.push_back(action);
}

}  // namespace klt
