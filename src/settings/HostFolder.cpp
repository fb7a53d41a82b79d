#include "settings/HostFolder.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/DrivePaths.h"
#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

constexpr std::string_view kHostFile = "TVM.INI";
constexpr std::string_view kHostFolder = "TVM";
constexpr std::string_view kPrograms = "Program Files";

std::string pathIn(std::string_view folder, std::string_view name) {
    return std::string(folder).append(folder.ends_with('/') ? "" : "/").append(name);
}

// None where the folder has no such file.
std::optional<std::string> existingFile(const std::string& folder) {
    const auto asTold = pathIn(folder, kHostFile);
    if (PathExists(asTold) && !isFolder(asTold)) return asTold;
    for (const auto& name : namesIgnoringCase(folder, kHostFile))
        if (const auto path = pathIn(folder, name); !isFolder(path)) return path;
    return std::nullopt;
}

void addHostFolders(std::vector<std::string>& folders, const std::string& above) {
    for (const auto& name : namesIgnoringCase(above, kHostFolder)) folders.push_back(pathIn(above, name));
}

std::vector<std::string> programFolders(const std::string& drive) {
    std::vector<std::string> folders;
    std::error_code error;
    for (fs::directory_iterator entry(drive, error), end; !error && entry != end; entry.increment(error))
        if (entry->path().filename().string().starts_with(kPrograms))
            folders.push_back(entry->path().string());
    std::sort(folders.begin(), folders.end());
    return folders;
}

}  // namespace

std::string hostFileIn(std::string_view folder) {
    const auto full = FullFileName(fromDrivePath(folder, winePrefix()));
    return existingFile(full).value_or(pathIn(full, kHostFile));
}

std::string findHostFolder() {
    const auto drive = winePrefix() + "/drive_c";
    std::vector<std::string> folders = {userFolder("XDG_CONFIG_HOME", "/.config") + "/tvm",
                                        userFolder("XDG_DATA_HOME", "/.local/share") + "/tvm",
                                        homeFolder() + "/.tvm"};
    addHostFolders(folders, drive);
    for (const auto& programs : programFolders(drive)) addHostFolders(folders, programs);
    const auto found = std::find_if(folders.begin(), folders.end(), [](const std::string& folder) {
        return existingFile(folder).has_value();
    });
    return found == folders.end() ? homeFolder() : *found;
}

}  // namespace klt
