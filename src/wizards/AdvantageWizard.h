#pragma once

#include "wizards/WizardTable.h"

namespace klt {

/// Advantages, disadvantages, powers and quirks: lines of one shape for four sections.
extern const WizardTable kAdWizard;

}  // namespace klt
