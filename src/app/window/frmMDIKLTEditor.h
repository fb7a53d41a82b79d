#pragma once

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/commands/CommandQueue.h"
#include "app/dialogs/CommonDialog1.h"
#include "app/documents/OpenForms.h"
#include "app/menus/Menus.h"
#include "app/menus/Toolbars.h"
#include "app/window/ClipboardState.h"
#include "app/window/NoticeBar.h"
#include "app/window/StatusPanels.h"
#include "app/window/TitleStyle.h"

class QMdiArea;
class QMdiSubWindow;

namespace klt {

class Store;
class frmKLTEditor;
struct modVariables;

/// The main window: frame of the document windows, which it owns.
class frmMDIKLTEditor : public QMainWindow {
    Q_OBJECT

public:
    frmMDIKLTEditor(modVariables& variables, Store& store, CommandQueue& queue);
    ~frmMDIKLTEditor() override;

    /// Prepares everything for the first document; the window is not shown by it.
    void Load();
    /// The window was closed, and the program is to end.
    bool isUnloaded() const { return unloaded_; }

    /// Asked before any document closes at a shutdown; false stops it.
    void setFormsCheck(std::function<bool()> check) { formsCheck_ = std::move(check); }
    /// Asked before a changed document closes; true keeps it, and stops a shutdown.
    void setCloseCheck(std::function<bool(frmKLTEditor&)> check) { closeCheck_ = std::move(check); }

    /// Makes a document window, shows it and makes it the active one.
    frmKLTEditor& loadDocument();
    /// Shows the document, gives it the focus and makes it the active one.
    void showDocument(frmKLTEditor& document);
    /// The active document; null where none is open.
    frmKLTEditor* ActiveForm() const { return forms_.active(); }
    const OpenForms& forms() const { return forms_; }
    void closeDocument(frmKLTEditor& document);
    /// Makes the menus' variable parts again and brings the states up to date.
    void updateMenus();
    /// Takes the list of recent files from the store, whatever it holds; the menu does not show it yet.
    void loadRecentFiles();
    /// Brings the menu items' states up to date: after each move of the caret and each edit.
    void UpdateEditMenu() { menus_.UpdateEditMenu(); }
    /// Shows the popup of that name at a place of the screen, in pixels.
    void showPopup(std::string_view name, const QPoint& globalPoint) { menus_.showPopup(name, globalPoint); }

    /// Restores the window where it is minimised and brings it to the front.
    void bringForward();

    StatusPanels& panels() { return *panels_; }
    QMdiArea& area() { return *area_; }
    Toolbars& toolbars() { return *toolbars_; }
    const ClipboardState& clipboard() const { return clipboard_; }
    NoticeBar& notices() { return *notices_; }
    CommonDialog1& fileDialog() { return *fileDialog_; }
    QTimer& Timer1() { return timer1_; }

signals:
    void MenuClick(const QString& key);
    void documentLoaded(frmKLTEditor* document);
    void documentActivated(frmKLTEditor* document);
    /// The user has come back to the window.
    void windowActivated();
    void filesDropped(const std::vector<std::string>& paths);
    /// No message from outside is taken from now on.
    void unloading();
    void unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;

private:
    void buildMenus();
    void buildStatusBar();
    void buildToolbars();
    void prepareFileDialog();
    void activated(QMdiSubWindow* window);
    void activate(frmKLTEditor& document);
    QMdiSubWindow* subWindowOf(const frmKLTEditor& document) const;
    bool documentQueryUnload(frmKLTEditor& document);
    bool queryUnload();
    void unload();
    void giveFocusBack();
    static void giveDialogTheKeyboard();
    void refreshBars();
    void SetGradient();

    modVariables& variables_;
    Store& store_;
    CommandQueue& queue_;
    std::function<bool()> formsCheck_;
    std::function<bool(frmKLTEditor&)> closeCheck_;
    OpenForms forms_;
    /// Outlives the windows that are drawn by it.
    TitleStyle titles_;
    NoticeBar* notices_;
    QMdiArea* area_;
    std::optional<StatusPanels> panels_;
    Menus menus_;
    Toolbars* toolbars_ = nullptr;
    ClipboardState clipboard_;
    CommonDialog1* fileDialog_ = nullptr;
    QTimer timer1_;
    QTimer timer2_;
    bool closing_ = false;
    bool unloaded_ = false;
};

}  // namespace klt
