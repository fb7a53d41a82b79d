#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace klt {

/// Where file systems that hold files are mounted, by the kernel's table (`/proc/self/mountinfo`): "/" first,
/// the others in the order of their bytes, each once. What covers a mount point last counts. A line that is
/// none of that table is passed over.
std::vector<std::string> mountPoints(std::string_view table);
/// The same of this process. None of the file systems is asked, for one that doesn't answer would hold the
/// caller.
std::vector<std::string> mountPoints();

/// The one of `points`, "/" first, in which a full path lies, as it is spelled.
std::string mountPointOf(std::string_view path, const std::vector<std::string>& points);

}  // namespace klt
