#include "platform/NewFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <random>

#include "platform/FileCalls.h"

namespace klt {

std::string unguessableName() {
    std::random_device source;
    char text[17];
    std::snprintf(text, sizeof text, "%08x%08x", source(), source());
    return text;
}

NewFile::NewFile(std::string folder, mode_t mode)
    : folder_(std::move(folder)), path_(folder_ + "/.klt-" + unguessableName()) {
    file_ = Descriptor(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    isOurs_ = static_cast<bool>(file_);
    if (!isOurs_) error_ = errno;
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
    if (rename(path_.c_str(), path.c_str()) != 0) return errno;
    isOurs_ = false;
    return flushFolder(folder_);
}

int NewFile::publish(const std::string& path) {
    if (const int error = renameToFree(path_, path)) return error;
    isOurs_ = false;
    return 0;
}

}  // namespace klt
