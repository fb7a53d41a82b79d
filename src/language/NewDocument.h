#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "language/LogicalLine.h"

namespace klt {

/// The comment that a new document has under its version line.
inline constexpr std::string_view kNewDocumentComment =
    "* The version information above MUST be the first line of the data file";

namespace detail {

inline constexpr auto kNewDocument = [] {
    constexpr std::string_view kLineEnd = "\r\n";
    std::array<char, kVersionLine.size() + kLineEnd.size() + kNewDocumentComment.size()> text{};
    auto* end = text.begin();
    for (const auto part : {kVersionLine, kLineEnd, kNewDocumentComment})
        end = std::copy(part.begin(), part.end(), end);
    return text;
}();

}  // namespace detail

/// The text of a new document.
inline constexpr std::string_view kNewDocumentText(detail::kNewDocument.data(), detail::kNewDocument.size());

}  // namespace klt
