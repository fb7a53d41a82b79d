#include "platform/KeptCopies.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <filesystem>

#include "platform/FileCalls.h"
#include "platform/NewFile.h"
#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

// A name of 255 bytes is the longest there is; what we put behind it needs room.
constexpr size_t kLongestStem = 150;
constexpr int kMostNames = 1000;

// FNV-1a: it has to be the same in every run, so std::hash won't do.
std::string hashOf(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016" PRIx64, hash);
    return digits;
}

// What the names of all copies of that file begin with: its name, for a person, and its whole path, hashed.
std::string copiesStem(const std::string& original) {
    const auto target = linkTarget(FullFileName(original));
    return FileName(target).substr(0, kLongestStem) + "~" + hashOf(target) + "~";
}

bool isInUse(const std::string& copy) {
    const Descriptor file(open(copy.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    return file && flock(file.number(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace

KeptCopy::KeptCopy(const std::string& original, std::string_view bytes) {
    const auto folder = stateFolder();
    NewFile file(folder, S_IRUSR | S_IWUSR);
    int error = file.error();
    if (error == 0) error = file.write(bytes);
    if (error == 0) error = flush(file.number());
    // The lock hides the copy while it is in use. Where files can't be locked the user is told of it
    // meanwhile.
    const auto path = folder + "/" + copiesStem(original) + unguessableName();
    if (error == 0) error = file.publish(path);
    // In a folder that can't be flushed a copy still outlives a kill: better than a text that can't be saved.
    if (file.isNamed()) {
        path_ = path;
        lock_ = file.release();
    } else {
        error_ = "No copy of the old file can be kept in " + folder + ": " + *systemFailure(error);
    }
}

void KeptCopy::discard() {
    unlink(path_.c_str());
}

std::vector<std::string> leftoverCopies(const std::string& original) {
    std::vector<std::string> copies;
    const auto stem = copiesStem(original);
    std::error_code error;
    for (fs::directory_iterator entry(stateFolder(), error), end; !error && entry != end;
         entry.increment(error)) {
        const auto path = entry->path().string();
        if (FileName(path).starts_with(stem) && !isInUse(path)) copies.push_back(path);
    }
    std::sort(copies.begin(), copies.end());
    return copies;
}

Failure dismissKeptFile(const std::string& file) {
    const auto folder = folderOf(file) + "/dismissed";
    makePrivateFolder(folder);
    const auto stem = folder + "/" + FileName(file);
    int error = renameToFree(file, stem);
    for (int number = 2; error == EEXIST && number < kMostNames; ++number)
        error = renameToFree(file, stem + "~" + std::to_string(number));
    return systemFailure(error == 0 ? flushFolder(folder) : error);
}

}  // namespace klt
