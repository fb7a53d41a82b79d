#pragma once

#include <string_view>

namespace klt {

/// How an item is taken out of the document for its wizard.
enum class ItemStep : unsigned char { SingleLine, BlockIntoBox, Package };

/// What edits the items of a section.
struct EditSection {
    /// In upper case, without brackets.
    std::string_view name = {};
    std::string_view form = {};
    /// The combo that gets the subsection; empty where the section has none.
    std::string_view list = {};
    /// The option that is chosen first.
    std::string_view option = {};
    ItemStep step = ItemStep::SingleLine;
    /// The box that takes a block.
    std::string_view box = {};
    /// Whether the subsection is all of its heading behind the "<".
    bool isWholeHeading = false;
};

/// The row of that section, in any case; null where there is none, as for the Author section.
const EditSection* editSection(std::string_view name);

}  // namespace klt
