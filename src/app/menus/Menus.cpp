#include "app/menus/Menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPoint>
#include <map>

#include "app/documents/frmKLTEditor.h"
#include "app/menus/CommandTable.h"
#include "app/menus/FileMenu.h"
#include "app/menus/PopupTable.h"
#include "app/menus/WindowMenu.h"
#include "app/modVariables.h"
#include "app/window/frmMDIKLTEditor.h"
#include "platform/CommandKeys.h"
#include "settings/Catalogue.h"

namespace klt {
namespace {

void setKey(QMenu& menu, std::string_view key) {
    menu.setObjectName(latin(key));
    menu.menuAction()->setObjectName(latin(key));
}

/// Del has to reach the text: as a live shortcut it would act wherever the focus is.
void setShortcut(QAction& action, std::string_view shortcut) {
    if (shortcut == "Del") {
        action.setText(action.text() + "\tDel");
    } else {
        action.setShortcut(QKeySequence(latin(shortcut)));
    }
}

}  // namespace

Menus::Menus(frmMDIKLTEditor& window, const modVariables& variables, Store& store)
    : window_(window), variables_(variables), store_(store) {}

void Menus::BuildMenus() {
    buildTree(*window_.menuBar());
    buildPopups();
    save_ = action(commands::kSave);
    recentFiles_.emplace(*window_.findChild<QMenu*>(latin(commands::kFileMenu)), action(commands::kExit));
    documents_.emplace(*window_.findChild<QMenu*>(latin(commands::kWindowMenu)));
    for (auto* items : {&barItems_, &popupItems_})
        connect(items, &CommandItems::MenuClick, this, &Menus::MenuClick);
    for (auto* entries : {&*recentFiles_, &*documents_})
        connect(entries, &MenuEntries::MenuClick, this, &Menus::MenuClick);
}

void Menus::buildTree(QMenuBar& bar) {
    std::map<std::string_view, QMenu*> menus;
    for (const MenuRow& row : kMenuTree) {
        if (row.kind == MenuRowKind::Menu) {
            const QString caption = latin(row.caption);
            auto* menu = row.parent.empty() ? bar.addMenu(caption) : menus.at(row.parent)->addMenu(caption);
            setKey(*menu, row.key);
            connect(menu, &QMenu::aboutToShow, this, [this] {
                updateCheckMarks();
                UpdateEditMenu();
            });
            menus[row.key] = menu;
        } else if (row.kind == MenuRowKind::Separator) {
            menus.at(row.parent)->addSeparator();
        } else {
            QAction& action = barItems_.add(*menus.at(row.parent), row.key, latin(row.key), row.caption);
            setShortcut(action, row.shortcut);
            if (row.kind != MenuRowKind::CheckMark) continue;
            action.setCheckable(true);
            // An image would stand in the place of the mark.
            action.setIconVisibleInMenu(false);
        }
    }
}

void Menus::buildPopups() {
    for (const PopupTable& table : kPopups) {
        auto* popup = new QMenu(&window_);
        setKey(*popup, table.name);
        connect(popup, &QMenu::aboutToShow, this, &Menus::UpdatePopupMenu);
        const auto add = [&](const PopupRow& row) {
            switch (row.kind) {
                case PopupRow::Kind::Separator:
                    popup->addSeparator();
                    break;
                case PopupRow::Kind::Heading:
                    popup->addSection(latin(row.caption));
                    break;
                case PopupRow::Kind::Command:
                    popupItems_.add(*popup, row.key, latin(table.name) + "." + latin(row.key), row.caption);
            }
        };
        for (const PopupRow& row : popups::kEditing) add(row);
        for (const PopupRow& row : table.rows) add(row);
    }
}

QAction* Menus::action(const char* key) const {
    return window_.findChild<QAction*>(key);
}

void Menus::BuildFileMenu() {
    recentFiles_->show(recentEntries(variables_.RecentFiles));
}

void Menus::BuildWindowMenu() {
    updateCheckMarks();
    documents_->show(windowEntries(window_.forms()));
}

void Menus::updateCheckMarks() {
    action(commands::kDefaultToolbar)->setChecked(window_.toolbars().isBandVisible(kDefaultBand));
    action(commands::kWizardsToolbar)->setChecked(window_.toolbars().isBandVisible(kWizardsBand));
    action(commands::kCheckerWindow)->setChecked(readSetting(store_, settings::kShowKLTCheckerWindow) == 1);
}

MenuFacts Menus::facts() const {
    const auto* document = window_.ActiveForm();
    if (!document) return {};
    const RichTextBox& area = *document->RichTextBox1;
    return {.documentOpen = true,
            .modified = document->Modified(),
            .clipboardHasText = window_.clipboard().hasText(),
            .selStart = area.SelStart(),
            .selLength = area.SelLength(),
            .line = area.GetLineFromChar(area.SelStart())};
}

void Menus::UpdateEditMenu() {
    barItems_.update(facts());
    const auto* document = window_.ActiveForm();
    save_->setText(saveText(document ? &document->Caption() : nullptr));
}

void Menus::UpdatePopupMenu() {
    popupItems_.update(facts());
}

void Menus::showPopup(std::string_view name, const QPoint& globalPoint) {
    if (auto* popup = window_.findChild<QMenu*>(latin(name))) popup->popup(globalPoint);
}

}  // namespace klt
