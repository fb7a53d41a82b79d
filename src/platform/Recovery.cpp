#include "platform/Recovery.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>

#include "platform/FileCalls.h"
#include "platform/NewFile.h"
#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

constexpr int kMostNames = 10000;
constexpr size_t kLongestStem = 200;

std::string recoveryFolder() {
    auto folder = stateFolder() + "/recovery";
    makePrivateFolder(folder);
    return folder;
}

// "harbor.klt", then "harbor-2.klt" and so on; never hidden, for hidden names are those being written.
std::string nameFor(const std::string& documentName, int number) {
    auto name = FileName(documentName);
    if (name.empty() || name.starts_with('.')) name.insert(0, "document");
    const auto extension = FileExtension(name);
    const auto ending = extension.empty() || extension.size() > 16 ? std::string() : "." + extension;
    const auto stem = name.substr(0, std::min(name.size() - ending.size(), kLongestStem));
    return stem + (number == 1 ? "" : "-" + std::to_string(number)) + ending;
}

Recovered keep(const std::string& documentName, std::string_view bytes) {
    const auto folder = recoveryFolder();
    NewFile file(folder, S_IRUSR | S_IWUSR);
    int error = file.error();
    if (error == 0) error = file.write(bytes);
    if (error == 0) error = flush(file.number());
    if (error != 0) return {folder, systemFailure(error)};
    std::string path;
    error = EEXIST;
    for (int number = 1; error == EEXIST && number < kMostNames; ++number) {
        path = folder + "/" + nameFor(documentName, number);
        error = file.publish(path);
    }
    return {path, systemFailure(error)};
}

}  // namespace

Recovered keepForRecovery(const std::string& documentName, std::string_view text, Encoding encoding) {
    try {
        return keep(documentName, encode(text, encoding).bytes());
    } catch (const std::bad_alloc&) {
        return {{}, systemFailure(ENOMEM)};
    }
}

std::vector<std::string> recoveryFiles() {
    std::vector<std::string> files;
    std::error_code error;
    for (fs::directory_iterator entry(recoveryFolder(), error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code unknown;
        const auto path = entry->path().string();
        if (entry->is_regular_file(unknown) && !FileName(path).starts_with('.')) files.push_back(path);
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace klt
