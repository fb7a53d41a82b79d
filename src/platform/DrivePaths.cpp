#include "platform/DrivePaths.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/CommandLine.h"
#include "platform/Paths.h"
#include "text/Ascii.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

constexpr std::string_view kDevices = "/dosdevices";
constexpr std::string_view kFirstDrive = "drive_c";

bool isDrivePath(std::string_view path) {
    return path.size() > 2 && isLetter(path[0]) && path[1] == ':' && path[2] == '\\';
}

// The folder that a drive leads to, without a "/" at its end, so that the root is empty; none without the
// drive.
std::optional<std::string> driveFolder(char letter, const std::string& prefix) {
    std::error_code error;
    auto link = std::string(prefix).append(kDevices).append("/").append(1, toLower(letter)).append(":");
    auto folder = fs::canonical(link, error).string();
    if (error || !isFolder(folder)) return std::nullopt;
    if (folder == "/") folder.clear();
    return folder;
}

std::string prefixAbove(fs::path folder) {
    for (; folder.has_relative_path(); folder = folder.parent_path()) {
        auto prefix = folder.parent_path().string();
        if (folder.filename() == kFirstDrive && isFolder(prefix + std::string(kDevices))) return prefix;
    }
    return {};
}

}  // namespace

std::string winePrefix() {
    return userFolder("WINEPREFIX", "/.wine");
}

std::string fromDrivePath(std::string_view path, const std::string& prefix) {
    std::string result(path);
    if (!isDrivePath(path)) return result;
    auto folder = driveFolder(path[0], prefix);
    if (!folder) return result;
    std::replace(result.begin(), result.end(), '\\', '/');
    return folder->append(result, 2);
}

std::vector<std::string> fromDrivePaths(std::vector<std::string> arguments, const std::string& prefix) {
    for (auto& argument : arguments) {
        const size_t start = beginsWithSwitch(argument) ? kDirectorySwitch.size() : 0;
        argument.replace(start, argument.npos,
                         fromDrivePath(std::string_view(argument).substr(start), prefix));
    }
    return arguments;
}

std::string prefixOf(const std::string& file) {
    if (auto prefix = prefixAbove(fs::path(file).parent_path()); !prefix.empty()) return prefix;
    std::error_code error;
    // The file itself may be a link into the prefix.
    const auto real = fs::weakly_canonical(file, error);
    return error ? std::string() : prefixAbove(real.parent_path());
}

std::optional<std::string> toDrivePath(const std::string& path, const std::string& prefix) {
    if (path.find('\\') != path.npos) return std::nullopt;
    std::optional<std::string> result;
    size_t closest = 0;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto folder = driveFolder(letter, prefix);
        if (!folder || !path.starts_with(*folder + "/")) continue;
        if (result && folder->size() <= closest) continue;
        closest = folder->size();
        result = std::string(1, letter).append(":").append(path, closest);
    }
    if (result) std::replace(result->begin(), result->end(), '/', '\\');
    return result;
}

}  // namespace klt
