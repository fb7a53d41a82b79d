#pragma once

#include <string>
#include <string_view>

#include "wizards/WizardTable.h"

namespace klt {

/// What a form does not keep of the line that it was filled from: tells which parts of `read` would go, and
/// which of `written` would come in their place. Empty where both say the same. The parts are those of the
/// loader; blanks, case, their order, and tags that say nothing or what the line says without them don't
/// count. A long part is cut to the place where it differs.
std::string lineLoss(const ItemShape& shape, std::string_view read, std::string_view written);

}  // namespace klt
