#include "app/menus/CommandItems.h"

#include <QAction>
#include <QMenu>

#include "app/commands/Commands.h"
#include "app/menus/CommandIcons.h"
#include "app/menus/CommandTable.h"
#include "app/menus/MenuEntries.h"

namespace klt {
QAction& CommandItems::add(QMenu& menu, std::string_view key, const QString& objectName,
                           std::string_view caption) {
    auto* action = menu.addAction(latin(caption));
    action->setObjectName(objectName);
    action->setIcon(commandIcon(latin(key)));
    connect(action, &QAction::triggered, this, [this, name = latin(key)] { emit MenuClick(name); });
    const MenuRow* row = menuRow(key);
    if (commandIsThere(key)) {
        items_.push_back({action, row ? row->rule : Rule::Always});
    } else {
        action->setEnabled(false);
    }
    return *action;
}

void CommandItems::update(const MenuFacts& facts) {
    for (const auto& [action, rule] : items_) {
        const bool enabled = isEnabled(rule, facts);
        action->setEnabled(enabled);
        if (rule == Rule::Undo) action->setText(enabled ? "Undo" : "Can't Undo");
    }
}

}  // namespace klt
