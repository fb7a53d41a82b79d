#pragma once

#include "platform/FileReader.h"

namespace klt {

/// All bytes up to the end of an open descriptor that may be a pipe; it waits for them. 2 GiB and more give
/// an error.
FileBytes readToEnd(int descriptor);

}  // namespace klt
