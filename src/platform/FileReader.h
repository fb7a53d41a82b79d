#pragma once

#include <string>

#include "platform/Failure.h"
#include "text/Encoding.h"

namespace klt {

struct FileBytes {
    std::string bytes;
    Failure error;
};

/// All bytes of a plain file under 2 GiB. A folder, FIFO or device, a file that can't be read, one that is
/// gone or that keeps changing gives an error and no bytes; it never waits for another process.
FileBytes readFile(const std::string& path);

struct TextFile {
    std::string text;
    Encoding encoding = Encoding::Any;
    Failure error;
};

/// The same as text, as `decode` tells.
TextFile readTextFile(const std::string& path);

}  // namespace klt
