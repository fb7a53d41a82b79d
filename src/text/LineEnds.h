#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace klt {

/// Whether every line end is CR LF, so that `withCrLf` would change nothing.
bool hasOnlyCrLf(std::string_view text);
/// The text with each lone CR and each lone LF made CR LF.
std::string withCrLf(std::string_view text);

/// The bytes of line ends in the text: in one with CR LF alone twice its line ends.
size_t countLineEndBytes(std::string_view text);

/// Whether a text, found where it begins and ends in the middle of line ends, would tear one apart.
bool tearsLineEnd(std::string_view text);

}  // namespace klt
