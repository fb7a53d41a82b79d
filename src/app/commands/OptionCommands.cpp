#include "app/commands/OptionCommands.h"

#include <QPointer>
#include <QStatusBar>

#include "app/Editor.h"
#include "platform/ProgramNames.h"
#include "settings/Catalogue.h"
#include "ui/MessageBox.h"

namespace klt {
namespace {

constexpr std::string_view kDemand = "You MUST set your TVM version.";

OptionsServices servicesOf(Editor& editor) {
    frmMDIKLTEditor& window = editor.mainWindow();
    return {
        .store = editor.store(),
        .styles = editor.variables.Settings,
        .recentFiles = editor.variables.RecentFiles,
        .recentFilesChanged =
            [&window] {
                window.loadRecentFiles();
                window.updateMenus();
            },
        .showStatusBar = [&window](bool isShown) { window.statusBar()->setVisible(isShown); },
        .showToolbars =
            [&window] {
                for (const char* band : {kDefaultBand, kWizardsBand}) window.toolbars().showBand(band, true);
                window.updateMenus();
            },
        .setInitialFolder = [&window](const std::string& folder) { window.fileDialog().InitDir(folder); }};
}

frmOptions* shownOptions(frmMDIKLTEditor& window) {
    for (auto* dialog : window.findChildren<frmOptions*>(Qt::FindDirectChildrenOnly))
        if (dialog->isVisible()) return dialog;
    return nullptr;
}

void bringUp(frmOptions& dialog) {
    dialog.showNormal();
    dialog.raise();
    dialog.activateWindow();
}

QPointer<frmOptions> showBeside(Editor& editor) {
    frmMDIKLTEditor& window = editor.mainWindow();
    auto* dialog = new frmOptions(servicesOf(editor), &window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(&window, &frmMDIKLTEditor::unloading, dialog, &QWidget::close);
    QObject::connect(dialog, &QDialog::finished, &editor, [&editor](int result) {
        if (result == frmOptions::kReopen) showBeside(editor);
    });
    bringUp(*dialog);
    return dialog;
}

}  // namespace

void openOptions(Editor& editor, OptionsTab tab) {
    frmMDIKLTEditor& window = editor.mainWindow();
    if (frmOptions* shown = shownOptions(window)) {
        shown->showTab(tab);
        return bringUp(*shown);
    }
    int result = frmOptions::kReopen;
    for (; result == frmOptions::kReopen; tab = OptionsTab::General) {
        const QPointer dialog = new frmOptions(servicesOf(editor), &window);
        dialog->showTab(tab);
        // The window may take it along.
        result = dialog->exec();
        delete dialog;
    }
}

void demandVersion(Editor& editor) {
    if (!readSetting(editor.store(), settings::kTvmVersionChosen).empty()) return;
    const auto dialog = showBeside(editor);
    MessageBox(dialog, kDemand, MessageIcon::None, kTitle);
    if (!dialog) return;
    dialog->activateWindow();
    dialog->focusVersion();
}

}  // namespace klt
