#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "language/Section.h"
#include "text/TextArea.h"

namespace klt {

/// What stands at the caret, as far as it can be edited in a form.
struct EditLineResult {
    enum class Kind : unsigned char {
        Item,
        /// The Author section, whose name is then selected.
        Author,
        /// The head of the file, which is then selected: no section stands above.
        Head,
    } kind = Kind::Head;
    /// The section of an item.
    Section section = Section::Other;
    /// Where the caret's line begins.
    Position EditLineStart = 0;
};

/// Told with the information icon.
inline constexpr std::string_view kAuthorNotEdited =
    "Sorry, the Author section may not be edited in this manner. Add comment lines and type whatever you "
    "like in this section.";
/// Told with the exclamation icon.
inline constexpr std::string_view kHeadNotEdited =
    "This section CANNOT be edited!!! If you change anything, TVM won't recognize the data file as being "
    "from "
    "version 2, and a lot of functionality will be lost!!!";

/// Finds the section of the item at the caret: the nearest name of one that stands in brackets above the
/// caret's line, other brackets being stepped over. A caret on a section's header belongs to the section
/// above. Moves the caret.
EditLineResult EditLine(TextArea& document);

/// The name of the subsection above `place`, which stands between the nearest `<` that starts a line and the
/// next `>`, or with `isWholeHeading` reaches to the end of that line less its last character. Empty where
/// there is none. Good until the document's next change.
std::string_view subsectionAbove(const TextArea& document, Position place, bool isWholeHeading = false);

/// An item taken out for its wizard.
struct EditedItem {
    /// In one line, without its comment; of a package the header.
    std::string line = {};
    /// The lines under the heading of a group or bonus, or under a package's header, as they stand.
    std::string block = {};
    /// A "//" comment in front of which the parentheses balance, with the blanks in front of it: it is put
    /// back behind the line that replaces the item. Else empty.
    std::string comment = {};
    /// Where the item stands, and what it is there. The line end behind it stays out.
    std::shared_ptr<const TrackedRange> place = {};
    std::string oldText = {};
};

/// Selects [start, end) as the item.
EditedItem takeItem(TextArea& document, TextRange range);

/// Takes the item whose first line holds `place`, and selects it.
EditedItem LoadSingleLine(TextArea& document, Position place);

}  // namespace klt
