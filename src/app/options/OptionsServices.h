#pragma once

#include <functional>
#include <string>

namespace klt {

class CRegSettings;
class Store;
class cMRUFileList;

/// What the dialog of options needs of the program. All of it must outlive the dialog.
struct OptionsServices {
    Store& store;
    /// The road to the styles.
    CRegSettings& styles;
    cMRUFileList& recentFiles;
    /// Loads the list of recent files anew and shows it in the menu.
    std::function<void()> recentFilesChanged = {};
    std::function<void(bool isShown)> showStatusBar = {};
    /// Shows all toolbars.
    std::function<void()> showToolbars = {};
    /// Where the file dialogs start.
    std::function<void(const std::string& folder)> setInitialFolder = {};
};

}  // namespace klt
