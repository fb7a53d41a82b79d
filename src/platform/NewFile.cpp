#include "platform/NewFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include "platform/FileCalls.h"

namespace fs = std::filesystem;

namespace klt {

namespace {

constexpr std::string_view kHiddenName = ".klt-";
constexpr size_t kDigits = 16;
constexpr int kMostTries = 100;

bool isHiddenName(std::string_view name) {
    return name.size() == kHiddenName.size() + kDigits && name.starts_with(kHiddenName) &&
           name.find_first_not_of("0123456789abcdef", kHiddenName.size()) == name.npos;
}

// The lock is held until the name is gone. Who makes a file looks, once it has locked it, whether it still
// has its name.
void removeUnlessLocked(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | O_NOFOLLOW));
    struct stat info {};
    if (file && fstat(file.number(), &info) == 0 && S_ISREG(info.st_mode) &&
        flock(file.number(), LOCK_EX | LOCK_NB) == 0)
        unlink(path.c_str());
}

}  // namespace

void removeLeftFiles(const std::string& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (isHiddenName(entry->path().filename().native())) removeUnlessLocked(entry->path());
}

std::string unguessableName() {
    std::random_device source;
    char text[kDigits + 1];
    std::snprintf(text, sizeof text, "%08x%08x", source(), source());
    return text;
}

NewFile::NewFile(std::string folder, mode_t mode) : folder_(std::move(folder)) {
    for (int tries = kMostTries; tries > 0 && !isOurs_; --tries)
        if (!make(mode)) return;
    if (!isOurs_) error_ = EBUSY;
    removeLeftFiles(folder_);
}

// False where none can be made. `isOurs_` stays false where another process took it for a leftover before it
// was locked.
bool NewFile::make(mode_t mode) {
    path_ = folder_ + "/" + std::string(kHiddenName) + unguessableName();
    file_ = Descriptor(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    if (!file_) error_ = errno;
    isOurs_ = file_ && lock();
    return static_cast<bool>(file_);
}

// False where another process has removed the file or is about to. Where files can't be locked none does.
bool NewFile::lock() const {
    struct stat info {};
    const bool isTaken = flock(number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !isTaken && lstat(path_.c_str(), &info) == 0;
}

NewFile::~NewFile() {
    if (isOurs_) unlink(path_.c_str());
}

int NewFile::write(std::string_view bytes) {
    if (const int error = writeAll(number(), bytes)) return error;
    struct stat info {};
    if (fstat(number(), &info) != 0) return errno;
    return static_cast<size_t>(info.st_size) == bytes.size() ? 0 : EIO;
}

int NewFile::replace(const std::string& path) {
    return rename(path_.c_str(), path.c_str()) == 0 ? named() : errno;
}

int NewFile::publish(const std::string& path) {
    const int error = renameToFree(path_, path);
    return error == 0 ? named() : error;
}

int NewFile::named() {
    isOurs_ = false;
    isNamed_ = true;
    return flushFolder(folder_);
}

}  // namespace klt
