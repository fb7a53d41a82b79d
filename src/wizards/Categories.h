#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace klt {

/// Whether the `<` or `[` at `place` starts a line: CR LF stands in front of it, with one blank between at
/// most. At the start of the text none does.
bool startsLine(std::string_view text, size_t place);

/// The names of a section's subsections in their order, the section being looked for anywhere in the text,
/// case ignored. Each line of a `<` that starts one gives all it holds between its first and its last
/// character that is no blank, so what follows the `>` costs letters at the end. Linear in the text, empty
/// without the section.
///
/// The way this is told asks a second time where nothing but an empty name had come first; one call takes
/// everything, and asking again could only add it twice.
std::vector<std::string> FillCategories(std::string_view text, std::string_view section);

}  // namespace klt
