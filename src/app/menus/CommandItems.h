#pragma once

#include <QObject>
#include <QString>
#include <string_view>
#include <vector>

#include "app/menus/EditRules.h"

class QAction;
class QMenu;

namespace klt {

/// The items of menus that stand for commands: what they say when they are chosen, and when they can be.
class CommandItems : public QObject {
    Q_OBJECT

public:
    /// Adds the command of `key` to the menu. It stays disabled while the program lacks it.
    QAction& add(QMenu& menu, std::string_view key, const QString& objectName, std::string_view caption);

    /// Brings the enabled states up to date, and the caption of Undo, which tells its own.
    void update(const MenuFacts& facts);

signals:
    void MenuClick(const QString& key);

private:
    struct Item {
        QAction* action;
        Rule rule;
    };
    std::vector<Item> items_;
};

}  // namespace klt
