#pragma once

#include <cerrno>
#include <string>

#include "platform/Failure.h"
#include "platform/FileIdentity.h"
#include "text/Encoding.h"

namespace klt {

struct FileBytes {
    std::string bytes;
    Failure error;
    /// Of the version that was read.
    FileIdentity identity = {};
};

/// All bytes of a plain file of no more than `largest`. A folder, FIFO or device, a file that can't be read,
/// one that is gone or that keeps changing gives an error and no bytes; it never waits for another process.
FileBytes readFile(const std::string& path, size_t largest = kLargestFile);

struct TextFile {
    std::string text;
    Encoding encoding = Encoding::Any;
    Failure error;

    bool isOutOfMemory() const { return error && error == systemFailure(ENOMEM); }
};

/// The same as text, as `decode` tells. An error too where the text would be longer than `largest`, or so
/// large when it is written that it could not be read again.
TextFile textOf(FileBytes file, size_t largest = kLargestFile);
/// Of the file at a path.
TextFile readTextFile(const std::string& path, size_t largest = kLargestFile);

}  // namespace klt
