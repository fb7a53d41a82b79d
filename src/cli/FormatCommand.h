#pragma once

#include "cli/Arguments.h"
#include "cli/Session.h"

namespace klt {

/// `klt format`: each text as a pass leaves it, in the encoding that its file has.
void runFormat(Session& session, const FormatArguments& arguments);

}  // namespace klt
