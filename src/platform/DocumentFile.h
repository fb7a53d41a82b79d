#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileNews.h"
#include "platform/FileReader.h"
#include "platform/FileWriter.h"

// A document's way out of its file and back into it, each with all that asks the file system, so that it can
// be gone on any thread: a file system may not answer.
namespace klt {

struct ReadText {
    /// As `readTextFile` gives it.
    TextFile file;
    /// Of what could not be read nothing was seen, but the user is told of it.
    KnownFile known;
};

ReadText readText(const std::string& path);

struct FoundText {
    /// As `findPathIgnoringCase` gives it.
    std::string path;
    /// The same without any link.
    std::string target;
    ReadText read;
    /// What saves that were killed have left of it.
    std::vector<std::string> leftovers;
};

/// None where there is no such file.
std::optional<FoundText> findText(const std::string& path);

struct SavedText {
    Written written;
    /// The path without any link.
    std::string target;
};

/// Writes over what is known of the file, and keeps any other version beside it.
SavedText saveText(const std::string& path, const std::string& text, Encoding encoding,
                   const KnownFile& known, PointOfNoReturn& point);

/// Returns when the file system that a path leads to, as `findPathIgnoringCase` gives it, has answered,
/// whatever it says.
void askFileSystem(const std::string& path);

}  // namespace klt
