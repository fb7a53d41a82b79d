#pragma once

#include <QObject>
#include <QString>
#include <string_view>
#include <vector>

class QAction;
class QMenu;

namespace klt {

struct MenuEntry {
    QString key;
    QString text;
    bool enabled = true;
    bool checked = false;
};

/// A caption or a key of the tables.
QString latin(std::string_view text);

/// The part of a menu that is made again and again.
class MenuEntries : public QObject {
    Q_OBJECT

public:
    /// The entries stand in front of `before`, a separator behind them; without `before` they end the menu.
    explicit MenuEntries(QMenu& menu, QAction* before = nullptr);

    /// Puts these in the place of those that were there. Without any there is no separator either.
    void show(const std::vector<MenuEntry>& entries);

signals:
    void MenuClick(const QString& key);

private:
    void clear();
    void add(const MenuEntry& entry);

    QMenu& menu_;
    QAction* before_;
    std::vector<QAction*> actions_;
};

}  // namespace klt
