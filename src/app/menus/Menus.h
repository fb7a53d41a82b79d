#pragma once

#include <QObject>
#include <optional>
#include <string_view>

#include "app/menus/CommandItems.h"
#include "app/menus/MenuEntries.h"

class QAction;
class QMenuBar;
class QPoint;
class QWidget;

namespace klt {

class Store;
class frmMDIKLTEditor;
struct modVariables;

/// The menu bar and the popups of the main window. Their state is a view of the active document.
class Menus : public QObject {
    Q_OBJECT

public:
    Menus(frmMDIKLTEditor& window, const modVariables& variables, Store& store);

    /// Makes the fixed tree and the popups; once.
    void BuildMenus();
    /// Makes the recent files' part of the File menu again.
    void BuildFileMenu();
    /// Makes the documents' part of the Window menu again, and its check mark.
    void BuildWindowMenu();

    /// Brings the items' states up to date. Costs nothing that grows with the document.
    void UpdateEditMenu();
    void UpdatePopupMenu();

    /// Shows a popup, up to date, at a place of the screen; a name that no popup has shows nothing.
    void showPopup(std::string_view name, const QPoint& globalPoint);

signals:
    void MenuClick(const QString& key);

private:
    void buildTree(QMenuBar& bar);
    void buildPopups();
    void updateCheckMarks();
    QAction* action(const char* key) const;
    MenuFacts facts() const;

    frmMDIKLTEditor& window_;
    const modVariables& variables_;
    Store& store_;
    QAction* save_ = nullptr;
    CommandItems barItems_;
    CommandItems popupItems_;
    std::optional<MenuEntries> recentFiles_;
    std::optional<MenuEntries> documents_;
};

}  // namespace klt
