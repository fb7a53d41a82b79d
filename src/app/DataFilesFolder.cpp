#include "app/DataFilesFolder.h"

#include <sys/stat.h>

#include <QStandardPaths>

#include "platform/NewFile.h"
#include "platform/Paths.h"
#include "settings/Catalogue.h"
#include "ui/QtStrings.h"

namespace klt {

bool takesNewFiles(const std::string& folder) {
    return !folder.empty() && NewFile(folder, S_IRUSR | S_IWUSR).error() == 0;
}

std::string documentsFolder() {
    return toPath(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

std::string defaultDataFilesFolder(const std::string& program) {
    if (takesNewFiles(program)) return program;
    auto documents = documentsFolder();
    return isFolder(documents) ? documents : homeFolder();
}

std::string dataFilesFolder(Store& store) {
    auto stored = readSetting(store, settings::kDataFilesPath);
    return stored.empty() ? defaultDataFilesFolder() : stored;
}

}  // namespace klt
