#pragma once

#include <string>
#include <vector>

#include "cli/Session.h"

namespace klt {

/// The whole program, from the arguments behind its name to the status that it exits with: 0 clean, 1 errors
/// found or a text that would change, 2 where something could not be done. SIGPIPE must be ignored.
int runProgram(const std::vector<std::string>& arguments, Streams streams);

}  // namespace klt
