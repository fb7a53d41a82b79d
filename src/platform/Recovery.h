#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Failure.h"
#include "text/Encoding.h"

namespace klt {

struct Recovered {
    /// Where the text is kept now.
    std::string path;
    Failure error;
};

/// Keeps the text of a document that could not be written, under a name of its own like the document's, in
/// "recovery" below the state folder, and returns when it is on the disk.
Recovered keepForRecovery(const std::string& documentName, std::string_view text, Encoding encoding);

/// The texts kept and not yet dismissed (`dismissKeptFile`), by name.
std::vector<std::string> recoveryFiles();

}  // namespace klt
