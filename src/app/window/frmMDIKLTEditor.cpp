#include "app/window/frmMDIKLTEditor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <filesystem>

#include "app/DataFilesFolder.h"
#include "app/documents/frmKLTEditor.h"
#include "app/menus/CommandIcons.h"
#include "app/modVariables.h"
#include "app/window/WindowPlace.h"
#include "platform/Paths.h"
#include "settings/Catalogue.h"
#include "settings/Upgrade.h"
#include "ui/DroppedFiles.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr int kTimer1Milliseconds = 100;
constexpr int kTimer2Milliseconds = 50;

}  // namespace

frmMDIKLTEditor::frmMDIKLTEditor(modVariables& variables, Store& store, CommandQueue& queue)
    : variables_(variables), store_(store), queue_(queue), menus_(*this, variables, store) {
    setObjectName("frmMDIKLTEditor");
    setAcceptDrops(true);

    auto* inside = new QWidget(this);
    notices_ = new NoticeBar(inside);
    area_ = new QMdiArea(inside);
    area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(notices_);
    column->addWidget(area_, 1);
    setCentralWidget(inside);
    connect(area_, &QMdiArea::subWindowActivated, this, &frmMDIKLTEditor::activated);

    timer1_.setObjectName("Timer1");
    timer1_.setInterval(kTimer1Milliseconds);
    connect(&timer1_, &QTimer::timeout, this, &frmMDIKLTEditor::giveFocusBack);
    timer2_.setObjectName("Timer2");
    timer2_.setInterval(kTimer2Milliseconds);
    connect(&timer2_, &QTimer::timeout, this, &frmMDIKLTEditor::refreshBars);
}

frmMDIKLTEditor::~frmMDIKLTEditor() {
    // While the area is destroyed, its documents activate each other.
    area_->disconnect(this);
}

void frmMDIKLTEditor::Load() {
    // Bars take their buttons' sizes from the icons.
    SetGradient();
    buildMenus();
    buildStatusBar();
    restorePlace(*this, store_);
    setWindowTitle(QString::fromLatin1(kTitle.data(), kTitle.size()));
    prepareFileDialog();
    upgradeSettings(store_);
    loadRecentFiles();
    buildToolbars();
    updateMenus();
}

void frmMDIKLTEditor::buildMenus() {
    menus_.BuildMenus();
    connect(&menus_, &Menus::MenuClick, this, &frmMDIKLTEditor::MenuClick);
    connect(&clipboard_, &ClipboardState::changed, this, &frmMDIKLTEditor::UpdateEditMenu);
}

void frmMDIKLTEditor::buildStatusBar() {
    panels_.emplace(*statusBar());
    panels_->showCaret(1, 1);
    statusBar()->setVisible(readSetting(store_, settings::kShowStatusBar));
}

void frmMDIKLTEditor::buildToolbars() {
    toolbars_ = new Toolbars(*this);
    connect(toolbars_, &Toolbars::MenuClick, this, &frmMDIKLTEditor::MenuClick);
    connect(toolbars_, &Toolbars::popupWanted, this,
            [this](const QPoint& place) { showPopup("mnuTToolbars", place); });
    toolbars_->restore(store_);
}

void frmMDIKLTEditor::prepareFileDialog() {
    fileDialog_ = new CommonDialog1(*this);
    std::string folder = dataFilesFolder(store_);
    if (std::error_code unknown; !std::filesystem::is_directory(folder, unknown)) {
        folder = defaultDataFilesFolder();
        writeSetting(store_, settings::kDataFilesPath, folder);
    }
    fileDialog_->InitDir(folder);
}

void frmMDIKLTEditor::loadRecentFiles() {
    auto registry = recentFilesRegistry(store_);
    variables_.RecentFiles = {};
    variables_.RecentFiles.MaxFileCount(cMRUFileList::storedCapacity(registry));
    variables_.RecentFiles.Load(registry);
}

frmKLTEditor& frmMDIKLTEditor::loadDocument() {
    const auto* active = ActiveForm();
    const bool maximised = !active || subWindowOf(*active)->isMaximized();
    auto* document = new frmKLTEditor;
    document->QueryUnload = [this, document] { return documentQueryUnload(*document); };
    auto* subWindow = area_->addSubWindow(document);
    // The area's own Ctrl+F4 would be ambiguous with the menu's.
    delete subWindow->systemMenu();
    subWindow->setSystemMenu(nullptr);
    subWindow->setStyle(&titles_);
    if (maximised) subWindow->setWindowState(Qt::WindowMaximized);
    forms_.add(*document);
    if (forms_.count() == 2) toolbars_->SetDocumentButtons(true);
    emit documentLoaded(document);
    showDocument(*document);
    return *document;
}

void frmMDIKLTEditor::showDocument(frmKLTEditor& document) {
    auto* subWindow = subWindowOf(document);
    subWindow->show();
    area_->setActiveSubWindow(subWindow);
    document.RichTextBox1->setFocus();
    activate(document);
    // The area has already activated this window.
    giveDialogTheKeyboard();
}

QMdiSubWindow* frmMDIKLTEditor::subWindowOf(const frmKLTEditor& document) const {
    return qobject_cast<QMdiSubWindow*>(document.parentWidget());
}

/// The area names none while the main window is minimised or not yet shown; the document then stays active.
void frmMDIKLTEditor::activated(QMdiSubWindow* window) {
    auto* document = window ? qobject_cast<frmKLTEditor*>(window->widget()) : nullptr;
    if (document && forms_.contains(document)) activate(*document);
}

void frmMDIKLTEditor::activate(frmKLTEditor& document) {
    if (!forms_.activate(document)) return;
    emit documentActivated(&document);
    updateMenus();
}

void frmMDIKLTEditor::closeDocument(frmKLTEditor& document) {
    subWindowOf(document)->close();
}

bool frmMDIKLTEditor::documentQueryUnload(frmKLTEditor& document) {
    if (!forms_.contains(&document)) return false;
    if (!document.AppEnd) {
        if (queue_.isHeld()) {
            queue_.submit(Origin::User, [this, later = QPointer<frmKLTEditor>(&document)] {
                if (later) closeDocument(*later);
            });
            return true;
        }
        variables_.CurrentFilePath = document.Caption();
        if (closeCheck_ && closeCheck_(document)) return true;
    }
    const bool wasActive = ActiveForm() == &document;
    forms_.remove(document);
    auto* next = forms_.active();
    if (!next) {
        toolbars_->SetDocumentButtons(false);
        panels_->clear();
    }
    if (next && wasActive) emit documentActivated(next);
    updateMenus();
    return false;
}

void frmMDIKLTEditor::updateMenus() {
    menus_.BuildFileMenu();
    menus_.BuildWindowMenu();
    menus_.UpdateEditMenu();
}

void frmMDIKLTEditor::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (closing_ || unloaded_) return;
    if (queue_.isHeld()) {
        queue_.submit(Origin::User, [this] { close(); });
        return;
    }
    const CommandQueue::Hold hold(queue_);
    const QScopedValueRollback closing(closing_, true);
    if (!queryUnload()) return;
    unload();
    event->accept();
}

bool frmMDIKLTEditor::queryUnload() {
    if (formsCheck_ && !formsCheck_()) return false;
    // Each is asked, whatever has become of the others meanwhile.
    for (auto* form : std::vector(forms_.documents())) {
        if (!forms_.contains(form)) continue;
        const QPointer<frmKLTEditor> document(form);
        variables_.CurrentFilePath = document->Caption();
        const bool stays = closeCheck_ && closeCheck_(*document);
        if (!document) continue;
        document->AppEnd = !stays;
        if (stays) return false;
        closeDocument(*document);
    }
    timer1_.stop();
    timer2_.stop();
    return true;
}

void frmMDIKLTEditor::unload() {
    emit unloading();
    toolbars_->storeVisibility(store_);
    storePlace(*this, store_);
    const auto bands = toolbars_->places();
    hide();
    removeSetting(store_, settings::kAboutBoxEasterEgg);
    Toolbars::storePlaces(store_, bands);
    unloaded_ = true;
    emit unloaded();
}

void frmMDIKLTEditor::bringForward() {
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    giveDialogTheKeyboard();
}

/// A dialog that is up keeps the keyboard: keys sent to a window below it would be lost.
void frmMDIKLTEditor::giveDialogTheKeyboard() {
    auto* dialog = QApplication::activeModalWidget();
    if (!dialog) return;
    dialog->raise();
    dialog->activateWindow();
}

/// The focus comes back to the text once no dialog is up and no activation is under way.
void frmMDIKLTEditor::giveFocusBack() {
    if (QApplication::activeModalWidget() || variables_.ActivatingDocument) return;
    timer1_.stop();
    if (auto* document = ActiveForm()) document->RichTextBox1->setFocus();
}

/// The bars change their look with the window's activation.
void frmMDIKLTEditor::refreshBars() {
    menuBar()->update();
    for (auto* bar : findChildren<QToolBar*>()) bar->update();
    timer2_.stop();
    if (!variables_.AppIsActive || QApplication::activeModalWidget()) return;
    if (auto* document = ActiveForm()) document->RichTextBox1->setFocus();
}

/// The title bar is the desktop's; the icons of the bars follow its palette.
void frmMDIKLTEditor::SetGradient() {
    useIconsFor(palette());
    if (panels_) panels_->refreshIcon();
}

bool frmMDIKLTEditor::event(QEvent* event) {
    const bool activates = event->type() == QEvent::WindowActivate;
    if (activates || event->type() == QEvent::WindowDeactivate) {
        if (variables_.StartupComplete) variables_.AppIsActive = activates;
        timer2_.start();
    }
    if (activates) emit windowActivated();
    if (event->type() == QEvent::PaletteChange) SetGradient();
    return QMainWindow::event(event);
}

void frmMDIKLTEditor::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).empty()) event->acceptProposedAction();
}

void frmMDIKLTEditor::dropEvent(QDropEvent* event) {
    const auto paths = localFiles(*event->mimeData());
    if (paths.empty()) return;
    event->acceptProposedAction();
    emit filesDropped(paths);
}

}  // namespace klt
