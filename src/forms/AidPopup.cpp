#include "forms/AidPopup.h"

#include <algorithm>

#include "ui/QtStrings.h"

namespace klt {
namespace {

/// Menus are made as wide as their items, headings not counted.
void fitHeading(QMenu& menu, const QString& heading) {
    const QFontMetrics metrics = menu.fontMetrics();
    const int width = metrics.horizontalAdvance(heading) + 4 * metrics.averageCharWidth();
    menu.setMinimumWidth(std::max(menu.minimumWidth(), width));
}

}  // namespace

AidPopup::AidPopup(const AidMenu& table, QWidget* parent) : QMenu(parent) {
    setObjectName(toQString(table.name));
    QMenu* subMenu = this;
    int position = 0;
    for (const AidItem& item : table.items) {
        ++position;
        QMenu& menu = item.isSubItem ? *subMenu : *this;
        const QString caption = toQString(item.caption);
        QAction* action = nullptr;
        if (item.act == AidAct::Heading) {
            action = menu.addSection(caption);
            fitHeading(menu, action->text());
        } else if (item.act == AidAct::SubMenu) {
            subMenu = menu.addMenu(caption);
            action = subMenu->menuAction();
        } else {
            action = menu.addAction(caption);
            action->setData(position);
        }
        action->setObjectName(objectName() + '.' + QString::number(position));
    }
}

int AidPopup::choose(QPoint place) {
    const QAction* const chosen = exec(place);
    return chosen == nullptr ? 0 : chosen->data().toInt();
}

}  // namespace klt
