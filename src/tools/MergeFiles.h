#pragma once

#include <string>
#include <vector>

#include "platform/Failure.h"

namespace klt {

/// Texts (UTF-8 with CR LF) as one data file, section by section in the order of the language, within a
/// section subsection by subsection, within these in the order of `texts`:
///
/// - One version line at the head with its comment; then what stands before the texts' first sections.
/// - Subsections whose names differ in case alone are joined under the first header.
/// - An item that is there in the same subsection already, byte for byte, is left out; a package where its
///   header and all its lines are equal; each [AUTHOR] block as a whole.
/// - Comments and blank lines stay above what they stood above, also where that is left out, unless the same
///   lines stand above what it equals.
/// - A header that names no section, or does not end, stays as a line. One that holds several sections is a
///   section of its own, at the end.
std::string MergeTexts(const std::vector<std::string>& texts);

struct MergeFailure {
    std::string path;
    std::string reason;
};

struct MergeResult {
    std::vector<MergeFailure> failures;
    /// Where the input is kept whose place the output took; empty where it took none.
    std::string kept;
};

/// Writes the merged texts as a new data file. One of the `files` that they come from is kept beside it
/// (`KeepBeside.h`).
[[nodiscard]] MergeResult writeMerged(const std::string& outputName, std::vector<std::string> texts,
                                      const std::vector<std::string>& files);

/// Reads all `files`, then writes their content as one to `outputName`, which may be one of them. Gives each
/// file that could not be read, and nothing is written then; or the output, where it could not be written.
[[nodiscard]] MergeResult MergeFiles(const std::string& outputName, const std::vector<std::string>& files);

}  // namespace klt
