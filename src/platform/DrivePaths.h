#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Paths as Windows programs spell them. A prefix is the folder of such programs' drives: its `dosdevices`
/// has a link "c:" for each drive.
namespace klt {

/// `$WINEPREFIX`, by default `~/.wine`; a relative value counts as unset.
std::string winePrefix();

/// The path of this system that "X:\..." means, symbolic links of the drive resolved; as it is where it is no
/// such path, or where the prefix has no such drive.
std::string fromDrivePath(std::string_view path, const std::string& prefix);

/// A command line's arguments with their drive paths translated, the directory behind "/d:" too.
std::vector<std::string> fromDrivePaths(std::vector<std::string> arguments, const std::string& prefix);

/// The prefix in whose `drive_c` a file lies, as it is spelled or with links resolved; empty where there is
/// none.
std::string prefixOf(const std::string& file);

/// The full path, free of links, as a path of the prefix's drive that leads closest to it; none where no
/// drive leads there, or where a name in it can't be spelled so.
std::optional<std::string> toDrivePath(const std::string& path, const std::string& prefix);

}  // namespace klt
