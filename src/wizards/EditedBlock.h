#pragma once

#include <optional>

#include "wizards/EditLine.h"

namespace klt {

/// Told where no package stands at the caret.
inline constexpr std::string_view kNoPackage =
    "No package stands here. Please put the caret on a package's header, or on a line below it.";

/// Takes the lines under the nearest heading at or above the line of `place`, and selects them: a
/// subsection's
/// (`<` behind blanks at most), a package's (`{` in the first column) or a section's (`[` behind blanks at
/// most). They end in front of the next such line, without its line end. A section's own header belongs to
/// the section above.
EditedItem LoadBlock(TextArea& document, Position place);

/// Takes the package whose header is the nearest at or above the line of `place`, header and all, and selects
/// it; nothing where the section's header comes first.
std::optional<EditedItem> LoadPackage(TextArea& document, Position place);

}  // namespace klt
