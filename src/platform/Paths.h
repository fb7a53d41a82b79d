#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace klt {

/// Whether something exists under this path, as spelled; a symbolic link that leads nowhere does not.
bool PathExists(std::string_view path);

/// A usable full form: "\" counts as "/", a relative path goes on from the current folder. Doubled
/// separators,
/// "." and ".." are taken out (".." behind a symbolic link stays, for it leads elsewhere). Symbolic links are
/// not resolved. An ordinary full path comes back unchanged; so does a text of blanks, which is no path.
std::string CanonicalPath(std::string_view path);

/// The same for a name that the file dialog gives: a "\" is a letter like others.
std::string FullFileName(std::string_view path);

/// The file meant by a path: the path itself where it exists, else the one file whose path differs from it in
/// case alone, letters beyond ASCII included. None where no file matches, or more than one.
std::optional<std::string> findPathIgnoringCase(std::string_view path);

/// The names in a folder that are `name` but for case, in the order of their bytes; none where it can't be
/// listed.
std::vector<std::string> namesIgnoringCase(const std::string& folder, std::string_view name);

bool isFolder(const std::string& path);

std::string homeFolder();
/// What an environment variable names, else the folder `below` home, which begins with "/". A relative value
/// counts as unset.
std::string userFolder(const char* variable, std::string_view below);

/// `$XDG_CONFIG_HOME/klt-editor` (`~/.config`) and `$XDG_STATE_HOME/klt-editor` (`~/.local/state`), made with
/// mode 0700 where missing. Where one cannot be made the path comes all the same: its use fails then.
std::string configFolder();
std::string stateFolder();

/// `$XDG_RUNTIME_DIR/klt-editor`, made with mode 0700 where missing. Empty where there is none that belongs
/// to this user and is closed to others.
std::string runtimeFolder();

/// Makes a folder with mode 0700, and what is missing above it. False where it is not there afterwards.
bool makePrivateFolder(const std::string& path);

/// The letters behind the last dot of the name, without the dot; empty where the name has none.
std::string FileExtension(std::string_view path);

/// What the names of data files end in, written in any case, and a name without it.
inline constexpr std::string_view kFileEnding = ".klt";
std::string_view withoutFileEnding(std::string_view name);

/// The part of a path behind the last "/" or "\".
std::string FileName(std::string_view path);

}  // namespace klt
