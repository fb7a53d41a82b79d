#pragma once

#include "settings/Store.h"

namespace klt {

/// Brings the settings of an earlier version up to this one, and stores `AppVersion`. All or nothing, and
/// never twice where two processes start at once. False if the store could not be written: the settings stay
/// as they were then, for the next start.
bool upgradeSettings(Store& store);

}  // namespace klt
