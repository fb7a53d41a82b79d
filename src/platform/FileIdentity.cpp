#include "platform/FileIdentity.h"

#include <functional>

namespace klt {

bool FileIdentity::operator==(const FileIdentity& other) const {
    return inode == other.inode && size == other.size && modified == other.modified &&
           changed == other.changed;
}

bool FileIdentity::isSameFile(const FileIdentity& other) const {
    return inode != 0 && inode == other.inode && device == other.device;
}

FileIdentity identityOf(const struct stat& info) {
    return {.device = info.st_dev,
            .inode = info.st_ino,
            .size = info.st_size,
            .modified = {info.st_mtim.tv_sec, info.st_mtim.tv_nsec},
            .changed = {info.st_ctim.tv_sec, info.st_ctim.tv_nsec}};
}

bool FileVersion::holds(std::string_view bytes) const {
    return size == bytes.size() && hash == std::hash<std::string_view>{}(bytes);
}

FileVersion versionOf(const FileIdentity& identity, std::string_view bytes) {
    return {identity, bytes.size(), std::hash<std::string_view>{}(bytes)};
}

}  // namespace klt
