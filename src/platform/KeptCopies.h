#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Descriptor.h"
#include "platform/Failure.h"

namespace klt {

/// A flushed copy of the bytes of a file that is about to be written in place, in the state folder. It is
/// locked while this object lives, and stays behind if the process is killed; also behind a power cut, where
/// the folder can be flushed.
class KeptCopy {
public:
    KeptCopy(const std::string& original, std::string_view bytes);

    /// Where the copy could not be made; then there is none.
    const Failure& error() const { return error_; }
    const std::string& path() const { return path_; }
    /// Takes the copy away: the file no longer needs it.
    void discard();

private:
    std::string path_;
    Descriptor lock_;
    Failure error_;
};

/// The whole copies left over, of that file, by processes that ended while they wrote it in place.
std::vector<std::string> leftoverCopies(const std::string& original);

/// Moves a kept file, such as a leftover copy, into the folder "dismissed" beside it: it is no longer told
/// of, but not lost.
[[nodiscard]] Failure dismissKeptFile(const std::string& file);

}  // namespace klt
