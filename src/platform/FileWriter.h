#pragma once

#include <string>
#include <string_view>

#include "platform/Failure.h"
#include "text/Encoding.h"

namespace klt {

/// What becomes of the file that stood there before.
enum class OldFile {
    Replaced,
    /// It stays beside the new one with "~" behind its name ("~2", "~3" where that is taken): for the first
    /// save over a file that could not be read. Where it can't be kept, nothing is written.
    KeptBeside,
};

/// Writes a plain file so that a kill at any moment leaves the old bytes or the new ones, and returns when
/// they are on the disk. The path is taken as it stands; of a symbolic link the target is written.
/// Permissions are kept. A file with several hard links or another owner, or in a folder that takes no new
/// file, is written in place, its old bytes kept meanwhile as KeptCopies.h tells. A file that the user may
/// not write is refused, and so are more bytes than `largest`, which could not be read again. After an error
/// the old file is as it was. What an earlier kill left in the folder is taken away.
[[nodiscard]] Failure writeFile(const std::string& path, std::string_view bytes,
                                OldFile old = OldFile::Replaced, size_t largest = kLargestFile);

struct Written {
    /// The encoding that the file now has.
    Encoding encoding = Encoding::Any;
    Failure error;
};

/// Writes text as `encode` tells.
[[nodiscard]] Written writeTextFile(const std::string& path, std::string_view text, Encoding encoding,
                                    OldFile old = OldFile::Replaced);

}  // namespace klt
