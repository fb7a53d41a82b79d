#include "settings/HostProgram.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/DrivePaths.h"
#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

constexpr std::string_view kFiles = " %filelistquoted%";
constexpr std::string_view kBitmap = ".bmp";

}  // namespace

std::string runningProgram() {
    // What an update has replaced still runs, under a name that the system marks.
    constexpr std::string_view kReplaced = " (deleted)";
    std::error_code error;
    auto path = fs::read_symlink("/proc/self/exe", error).string();
    if (path.ends_with(kReplaced) && !PathExists(path)) path.resize(path.size() - kReplaced.size());
    return path;
}

bool isOnPath(const std::string& program, std::string_view searchPath) {
    const auto name = fs::path(program).filename().string();
    while (!searchPath.empty()) {
        const auto folder = searchPath.substr(0, searchPath.find(':'));
        searchPath.remove_prefix(std::min(folder.size() + 1, searchPath.size()));
        const auto file = std::string(folder).append("/").append(name);
        if (!folder.starts_with('/') || isFolder(file) || access(file.c_str(), X_OK) != 0) continue;
        std::error_code error;
        return fs::equivalent(file, program, error);
    }
    return false;
}

HostProgram hostProgram(const std::string& program, const std::string& hostFile,
                        std::string_view searchPath) {
    const auto prefix = prefixOf(hostFile);
    const auto drivePath = prefix.empty() ? std::nullopt : toDrivePath(program, prefix);
    const auto shown = drivePath.value_or(program);
    const auto name = fs::path(program).filename().string();
    const auto spelled = [&](std::string_view suffix) {
        if (shown.find(' ') == shown.npos) return shown + std::string(suffix);
        // A Windows program does not look along this system's folders.
        if (!drivePath && isOnPath(program, searchPath)) return name + std::string(suffix);
        return "\"" + shown + std::string(suffix) + "\"";
    };
    return {name, spelled("").append(kFiles), spelled(kBitmap)};
}

}  // namespace klt
