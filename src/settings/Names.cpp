#include "settings/Names.h"

namespace klt {

static_assert(kAppVersion.size() == 9, "the upgrade compares versions of exactly nine characters");

}  // namespace klt
