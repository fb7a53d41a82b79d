#pragma once

#include <optional>
#include <string>

#include "platform/FileIdentity.h"
#include "platform/FileReader.h"

// What becomes of a file on the disk while a document holds its text.
namespace klt {

/// What a document knows of its file.
struct KnownFile {
    /// The version that was read into the document or written from it, if any was.
    std::optional<FileVersion> seen;
    /// The other version that the user has been told of; all 0 where that was that the file is gone.
    std::optional<FileIdentity> told;

    bool operator==(const KnownFile&) const = default;
};

enum class FileState {
    /// It holds the bytes that were seen.
    AsSeen,
    Changed,
    Gone,
    /// It can't be found out.
    Unknown,
};

struct FileNow {
    FileState state = FileState::Unknown;
    /// All 0 unless there is a file.
    FileIdentity identity;

    bool operator==(const FileNow&) const = default;
};

/// What stands at the path now, symbolic links followed. The content is read only where the identity is
/// neither the one seen nor the one told of. What is there and can't be read counts as changed, what is no
/// plain file as gone. May wait as long as the file system does not answer.
FileNow lookAtFile(const std::string& path, const KnownFile& known);

/// What the user is to be told.
enum class FileNews {
    Nothing,
    Changed,
    Gone,
    /// What was told does not hold any more.
    Over,
};

/// `told` is what the user has been told last, as in `KnownFile`.
FileNews newsOf(const FileNow& now, const std::optional<FileIdentity>& told);

}  // namespace klt
