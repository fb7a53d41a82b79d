#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/TextArea.h"

namespace klt {

/// The text without the blanks around it and the double quotes that enclose it: `"a b" "c"` becomes `a b"
/// "c`.
std::string StripEnclosingQuotes(std::string_view text);

/// The parts between the occurrences of `separator`: always one more than there are occurrences. An empty
/// separator cuts nothing.
std::vector<std::string> SplitText(std::string_view text, std::string_view separator);

/// `text` with every occurrence of `find`, looked for from the start and behind the one before, replaced by
/// `with`. Without `matchCase` case is ignored, beyond ASCII too. An empty `find` replaces nothing. `count`,
/// where given, takes the number of replacements.
std::string FastReplace(std::string_view text, std::string_view find, std::string_view with,
                        bool matchCase = true, size_t* count = nullptr);
/// The same with [start, end) of `text` alone, both clamped to it; what lies around stays in the result.
std::string FastReplace(std::string_view text, TextRange part, std::string_view find, std::string_view with,
                        bool matchCase, size_t* count = nullptr);

}  // namespace klt
