#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <ctime>
#include <string_view>

namespace klt {

/// Which file stood on the disk, and by its times in which version. Without a file all is 0.
struct FileIdentity {
    struct Moment {
        time_t seconds = 0;
        long nanoseconds = 0;
        bool operator==(const Moment&) const = default;
    };
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    Moment modified;
    Moment changed;

    /// Whether it is the same version. The device does not count: a mount may give another number each time.
    bool operator==(const FileIdentity& other) const;
    /// Whether it is the same file, whatever it holds.
    bool isSameFile(const FileIdentity& other) const;
};

FileIdentity identityOf(const struct stat& info);

/// A version of a file with what it held, told apart from others by size and hash.
struct FileVersion {
    FileIdentity identity;
    size_t size = 0;
    size_t hash = 0;

    bool operator==(const FileVersion&) const = default;
    bool holds(std::string_view bytes) const;
};

FileVersion versionOf(const FileIdentity& identity, std::string_view bytes);

}  // namespace klt
