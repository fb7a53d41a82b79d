#pragma once

#include <string_view>

#include "wizards/WizardTable.h"

namespace klt {

/// What may stand in a field or combo, in a sentence or two; empty where nobody has written it down, as for
/// buttons and marks.
std::string_view fieldHelp(const ControlRow& row);

}  // namespace klt
