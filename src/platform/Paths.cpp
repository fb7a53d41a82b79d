#include "platform/Paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "text/Ascii.h"
#include "text/Unicode.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

constexpr std::string_view kOurFolder = "/klt-editor";
// More folders than this that differ in case alone are nobody's spelling mistake.
constexpr size_t kMostCandidates = 64;

bool isBlank(std::string_view text) {
    return text.find_first_not_of(' ') == text.npos;
}

bool isLink(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

// The parts between the slashes, empty ones left out.
std::vector<std::string_view> partsOf(std::string_view path) {
    std::vector<std::string_view> parts;
    for (size_t start = 0; start < path.size();) {
        const auto slash = std::min(path.find('/', start), path.size());
        if (slash > start) parts.push_back(path.substr(start, slash - start));
        start = slash + 1;
    }
    return parts;
}

std::string withoutDots(std::string_view path) {
    std::string result;
    for (const auto part : partsOf(path)) {
        if (part == ".") continue;
        const auto canGoBack = [&] { return result.empty() || (isFolder(result) && !isLink(result)); };
        if (part == ".." && canGoBack())
            result.resize(result.empty() ? 0 : result.rfind('/'));
        else
            result.append("/").append(part);
    }
    return result.empty() ? "/" : result;
}

std::string fullForm(std::string path) {
    if (isBlank(path)) return path;
    if (!path.starts_with('/')) {
        std::error_code error;
        const auto here = fs::current_path(error);
        if (error) return path;
        path.insert(0, here.string() + "/");
    }
    const bool namesFolder = path.ends_with('/') && path.size() > 1;
    auto result = withoutDots(path);
    if (namesFolder && result != "/") result.push_back('/');
    return result;
}

// The entries of `folder` whose name is `name` but for case; `name` itself also where the folder can't be
// listed.
std::vector<std::string> entriesNamed(const std::string& folder, std::string_view name) {
    auto found = namesIgnoringCase(folder.empty() ? "/" : folder, name);
    for (auto& entry : found) entry.insert(0, folder + "/");
    const auto asSpelled = folder + "/" + std::string(name);
    if (found.empty() && PathExists(asSpelled)) found.push_back(asSpelled);
    return found;
}

std::string ourFolder(const char* variable, std::string_view below) {
    auto folder = userFolder(variable, below).append(kOurFolder);
    makePrivateFolder(folder);
    return folder;
}

// Whether it is a folder, not a link to one, of this user's, without the permissions `closedTo`.
bool isOurs(const std::string& path, mode_t closedTo) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == geteuid() &&
           (info.st_mode & closedTo) == 0;
}

}  // namespace

bool PathExists(std::string_view path) {
    if (path.find('\0') != path.npos) return false;
    struct stat info {};
    return stat(std::string(path).c_str(), &info) == 0;
}

std::string CanonicalPath(std::string_view path) {
    std::string slashed(path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return fullForm(std::move(slashed));
}

std::string FullFileName(std::string_view path) {
    return fullForm(std::string(path));
}

bool isFolder(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::vector<std::string> namesIgnoringCase(const std::string& folder, std::string_view name) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        auto entryName = entry->path().filename().string();
        if (equalIgnoringCase(entryName, name)) names.push_back(std::move(entryName));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<std::string> findPathIgnoringCase(std::string_view path) {
    if (PathExists(path)) return std::string(path);
    if (isBlank(path)) return std::nullopt;
    const auto full = FullFileName(path);
    std::vector<std::string> candidates = {""};
    for (const auto part : partsOf(full)) {
        std::vector<std::string> next;
        for (const auto& folder : candidates) {
            auto found = entriesNamed(folder, part);
            std::move(found.begin(), found.end(), std::back_inserter(next));
        }
        if (next.size() > kMostCandidates) return std::nullopt;
        candidates = std::move(next);
    }
    std::erase_if(candidates, [](const auto& file) { return !PathExists(file) || isFolder(file); });
    if (candidates.size() != 1) return std::nullopt;
    return candidates.front();
}

bool makePrivateFolder(const std::string& path) {
    if (mkdir(path.c_str(), 0700) == 0) return true;
    if (errno == EEXIST) return isFolder(path);
    const auto slash = path.rfind('/');
    if (errno != ENOENT || slash == path.npos || slash == 0) return false;
    return makePrivateFolder(path.substr(0, slash)) && (mkdir(path.c_str(), 0700) == 0 || isFolder(path));
}

std::string homeFolder() {
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
    const passwd* user = getpwuid(geteuid());
    return user != nullptr ? user->pw_dir : "/";
}

std::string userFolder(const char* variable, std::string_view below) {
    if (const char* value = std::getenv(variable); value != nullptr && *value == '/') return value;
    return homeFolder().append(below);
}

std::string configFolder() {
    return ourFolder("XDG_CONFIG_HOME", "/.config");
}

std::string stateFolder() {
    return ourFolder("XDG_STATE_HOME", "/.local/state");
}

std::string runtimeFolder() {
    const char* base = std::getenv("XDG_RUNTIME_DIR");
    if (base == nullptr || *base != '/' || !isOurs(base, S_IWGRP | S_IWOTH)) return {};
    auto folder = std::string(base).append(kOurFolder);
    makePrivateFolder(folder);
    return isOurs(folder, S_IRWXG | S_IRWXO) ? folder : std::string();
}

std::string FileExtension(std::string_view path) {
    const auto name = FileName(path);
    const auto dot = name.rfind('.');
    return dot == name.npos ? std::string() : name.substr(dot + 1);
}

std::string_view withoutFileEnding(std::string_view name) {
    const auto stem = name.size() - std::min(name.size(), kFileEnding.size());
    return equalIgnoringAsciiCase(name.substr(stem), kFileEnding) ? name.substr(0, stem) : name;
}

std::string FileName(std::string_view path) {
    const auto separator = path.find_last_of("/\\");
    return std::string(separator == path.npos ? path : path.substr(separator + 1));
}

}  // namespace klt
