#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/Failure.h"

namespace klt {

/// Writes over the bytes of the file at `path`, open for writing as `file` and of the state `info`. Its old
/// bytes are kept in a flushed copy until the new ones are on the disk; after an error they are back in the
/// file, or else the copy stays and the error names it.
Failure writeInPlace(const std::string& path, int file, const struct stat& info, std::string_view bytes);

}  // namespace klt
