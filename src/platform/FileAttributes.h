#pragma once

#include <sys/stat.h>

namespace klt {

/// Gives the new, still empty file `to` the owner, group, access list and extended attributes of `from`,
/// which is open and of the state `info`. False where one of them can't be given: then the old file can't be
/// replaced by the new one unnoticed. The mode is left, for a write may change it.
bool copyAttributes(int from, const struct stat& info, int to);

}  // namespace klt
