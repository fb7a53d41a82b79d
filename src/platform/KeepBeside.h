#pragma once

#include <string>

#include "platform/Failure.h"

// Old files that stay beside new ones, under the whole name with "~" behind it, or with the first of "~2",
// "~3" and so on that is free. Nothing that has such a name is ever written over.
namespace klt {

struct KeptBeside {
    /// Where it is kept.
    std::string path;
    Failure error;
};

/// Copies a plain file beside itself, of a symbolic link its target, and returns when the copy is on the
/// disk. Permissions are kept, owner and attributes where they can be given. A kill at any moment leaves the
/// whole copy or none.
KeptBeside keepBeside(const std::string& path);

/// Gives the file itself such a name, as a second one where the file system has links, else as its only one.
/// `kept` takes the path. Gives the system's error number, 0 for none. The folder is left to be flushed.
int moveBeside(const std::string& path, std::string& kept);

}  // namespace klt
