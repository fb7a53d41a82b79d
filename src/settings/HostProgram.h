#pragma once

#include <string>
#include <string_view>

namespace klt {

/// The editor as the host's file names it.
struct HostProgram {
    std::string name;     ///< of the executable's file
    std::string command;  ///< the program's path, and the host's placeholder for its selected files
    std::string bitmap;   ///< the path of the picture beside the program
};

/// The running program's real absolute path; empty where the system does not tell it.
std::string runningProgram();

/// Whether the list of folders `searchPath` (as `$PATH` is) leads to this very program, and to no other of
/// its name before. Relative folders are passed over: which they are depends on who looks.
bool isOnPath(const std::string& program, std::string_view searchPath);

/// The program, by its real absolute path, for the host's file `hostFile`: as a path of a drive where that
/// file lies among such a prefix's, so that Windows programs find it. A path with blanks is quoted, or is the
/// bare name where `searchPath` leads to it and it is no drive's.
HostProgram hostProgram(const std::string& program, const std::string& hostFile, std::string_view searchPath);

}  // namespace klt
