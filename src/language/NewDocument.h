#pragma once

#include <string_view>

namespace klt {

/// The comment that a new document has under its version line.
inline constexpr std::string_view kNewDocumentComment =
    "* The version information above MUST be the first line of the data file";

/// The text of a new document.
inline constexpr std::string_view kNewDocumentText =
    "Version=2\r\n* The version information above MUST be the first line of the data file";
static_assert(kNewDocumentText.ends_with(kNewDocumentComment));

}  // namespace klt
