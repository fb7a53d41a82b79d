#include "app/dialogs/MergeFolder.h"

#include <sys/stat.h>

#include <QStandardPaths>
#include <filesystem>
#include <system_error>

#include "app/ProgramFolder.h"
#include "app/documents/frmKLTEditor.h"
#include "platform/FileCalls.h"
#include "platform/NewFile.h"
#include "settings/Catalogue.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

// Tried by making a file: permission bits don't tell, least of all for the administrator.
bool takesNewFiles(const std::string& folder) {
    return !folder.empty() && NewFile(folder, S_IRUSR | S_IWUSR).error() == 0;
}

}  // namespace

std::string mergeFolder(Store& store, const frmKLTEditor* active) {
    if (active && active->Exists()) return folderOf(active->Caption());
    auto dataFiles = readSetting(store, settings::kDataFilesPath);
    std::error_code unknown;
    const bool isProgram = std::filesystem::equivalent(dataFiles, programFolder(), unknown);
    if (!isProgram && takesNewFiles(dataFiles)) return dataFiles;
    return toPath(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

}  // namespace klt
