#pragma once

#include <atomic>
#include <string>
#include <string_view>

#include "platform/Failure.h"
#include "platform/FileIdentity.h"
#include "text/Encoding.h"

namespace klt {

/// What becomes of the file that stood there before.
enum class OldFile {
    Replaced,
    /// It stays beside the new one (`KeepBeside.h`). Where it can't be kept, nothing is written.
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
    /// Of `writeOverSeen`: what stands there now, and where the version that was not seen is kept, if any.
    FileVersion version = {};
    std::string kept = {};
};

/// Writes text as `encode` tells.
[[nodiscard]] Written writeTextFile(const std::string& path, std::string_view text, Encoding encoding,
                                    OldFile old = OldFile::Replaced);

/// The moment at which a write can't be called off any more, between the thread that writes and the one that
/// waits for it.
class PointOfNoReturn {
public:
    /// For the writer, before the first change to the file. False where the write was called off.
    bool pass() { return decide(State::Passed); }
    /// For who waits. False where it comes too late.
    bool callOff() { return decide(State::CalledOff); }

private:
    enum class State { Open, Passed, CalledOff };
    bool decide(State wanted);

    std::atomic<State> state_ = State::Open;
};

/// The same, where only the version `seen` may be replaced: any other is kept beside the new file. It is all
/// 0 where the file was never seen, or was gone. A write that is called off changes nothing.
[[nodiscard]] Written writeOverSeen(const std::string& path, std::string_view text, Encoding encoding,
                                    const FileIdentity& seen, PointOfNoReturn& point);

}  // namespace klt
