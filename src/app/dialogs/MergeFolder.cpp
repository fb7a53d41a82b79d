#include "app/dialogs/MergeFolder.h"

#include <filesystem>
#include <system_error>

#include "app/DataFilesFolder.h"
#include "app/ProgramFolder.h"
#include "app/documents/frmKLTEditor.h"
#include "platform/FileCalls.h"
#include "settings/Catalogue.h"

namespace klt {

std::string mergeFolder(Store& store, const frmKLTEditor* active) {
    if (active && active->Exists()) return folderOf(active->Caption());
    auto dataFiles = readSetting(store, settings::kDataFilesPath);
    std::error_code unknown;
    const bool isProgram = std::filesystem::equivalent(dataFiles, programFolder(), unknown);
    if (!isProgram && takesNewFiles(dataFiles)) return dataFiles;
    return documentsFolder();
}

}  // namespace klt
