#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "wizards/WizardState.h"

namespace klt {

/// The item line that the fields make up, in one piece. Texts go in as they stand.
std::string itemText(const ItemShape& shape, const WizardState& state);

/// The choice that a value stands for, in any case and with blanks around it; null for none.
const Choice* choiceOf(const TagRow& row, std::string_view value);

/// Takes a line apart by its tags, from the last one to the first, and fills the fields; the texts of other
/// fields stay. Blanks at the line's end don't count. Nothing is refused: what is not recognised stays in the
/// name field or in the tag in front of it. The tags are searched without regard to quotes, nesting and word
/// borders, a value is cut one character in front of the line's end, and a tag two characters in front of its
/// start.
void LoadLineIntoWizard(const ItemShape& shape, std::string_view line, WizardState& state);

/// The line as the loader cuts it: what stands in front of its tags, then each tag with all up to the next
/// one. Blanks around them are gone.
std::vector<std::string> itemParts(const ItemShape& shape, std::string_view line);

}  // namespace klt
