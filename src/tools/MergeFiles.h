#pragma once

#include <string>
#include <vector>

#include "platform/Failure.h"
#include "text/Encoding.h"
#include "tools/UnknownHeading.h"

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
///
/// `unknown`, where given, takes the headers that stay as lines, in the order of the texts.
std::string MergeTexts(const std::vector<std::string>& texts, UnknownHeadings* unknown = nullptr);

/// A file that is merged.
struct MergeInput {
    std::string path;
    /// As it is called where something is told of it.
    std::string name;
    std::string text;
    Encoding encoding = Encoding::Any;
};

struct MergeFailure {
    std::string path;
    std::string reason;
};

struct MergeResult {
    std::vector<MergeFailure> failures;
    /// Where the input is kept whose place the output took; empty where it took none.
    std::string kept;
    /// What the user may not expect, a line each: headings that stay as lines, with file and line; files
    /// whose encoding changes as a character of another one asks for UTF-8.
    std::vector<std::string> notes;
};

/// Writes the merged texts as a new data file. Where it takes the place of one of the inputs, that is kept
/// beside it (`KeepBeside.h`).
[[nodiscard]] MergeResult writeMerged(const std::string& outputName, std::vector<MergeInput> inputs);

/// Reads all `files`, then writes their content as one to `outputName`, which may be one of them. Gives each
/// file that could not be read, and nothing is written then; or the output, where it could not be written.
[[nodiscard]] MergeResult MergeFiles(const std::string& outputName, const std::vector<std::string>& files);

}  // namespace klt
