#pragma once

#include "settings/Store.h"

namespace klt {

/// When a line is broken, and where. Both count characters.
struct LineBreakLimits {
    /// A longer line is broken; 0 leaves every line whole.
    int maximum = 0;
    /// How far before the maximum the break may come.
    int tolerance = 0;
};

/// What the settings say at this moment.
LineBreakLimits readLineBreakLimits(Store& store);

}  // namespace klt
