#pragma once

#include "cli/Arguments.h"
#include "cli/Session.h"

namespace klt {

/// `klt merge`: the content of all files as one. Nothing is written where one can't be read.
void runMerge(Session& session, const MergeArguments& arguments);

}  // namespace klt
