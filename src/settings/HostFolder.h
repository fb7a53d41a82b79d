#pragma once

#include <string>
#include <string_view>

namespace klt {

/// The host's file in a folder: "TVM.INI" as it is spelled there, the first of several that differ in case
/// alone; "TVM.INI" where there is none.
std::string hostFileIn(std::string_view folder);

/// The first folder that has a host's file, of `$XDG_CONFIG_HOME/tvm`, `$XDG_DATA_HOME/tvm`, `~/.tvm` and, on
/// the first drive of Windows programs, `TVM` and `Program Files*/TVM`; home where none has.
std::string findHostFolder();

}  // namespace klt
