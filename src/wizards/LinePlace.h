#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/TextArea.h"

namespace klt {

/// Finds a section (its name with brackets, case ignored, wherever it stands) and selects it. Where there is
/// none, writes it with a blank line under it at the end of the text, behind a line end, and leaves the caret
/// there. The place of the section, or kNotFound if it was made.
Position EnsureSection(TextArea& document, std::string_view section);

/// The category combo that orders a section's subsections.
struct CategoryList {
    const std::vector<std::string>& list;
    /// The chosen item, or -1; the subsection behind it is the next one in the document.
    int index = -1;
};

/// Leaves the caret on an empty line for a new item: right under the subsection (its header as it is written,
/// `<` and `>` included), so that the newest comes first. Section and subsection are made where they are
/// missing, the subsection in front of the one that follows it in the list, or else at the section's end. The
/// searches are for the texts
/// alone: any `[` ends the section, and a subsection is found inside an item too.
void GoToSubSection(TextArea& document, std::string_view section, std::string_view subsection,
                    const CategoryList& categories);

/// The same right under the header of a section that has no subsections.
void GoToSection(TextArea& document, std::string_view section);

/// Brings the line of the section to the top of the window; nothing without it.
void ScrollToSection(TextArea& document, std::string_view section);

}  // namespace klt
