#pragma once

#include "cli/Arguments.h"
#include "cli/Session.h"

namespace klt {

/// `klt check`: the findings go to the session's output, what could not be done to its complaints.
void runCheck(Session& session, const CheckArguments& arguments);

}  // namespace klt
