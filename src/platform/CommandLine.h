#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace klt {

/// What an argument begins with that names a directory, in any case.
inline constexpr std::string_view kDirectorySwitch = "/d:";
bool beginsWithSwitch(std::string_view text);

/// The process's command line in one text, from the arguments behind the program's name: each path made
/// absolute against `folder`, in double quotes, with single blanks between. An argument that begins with
/// "/d:" in any case is not made absolute, and the first such one that ends in "/" stands without quotes. No
/// arguments: empty.
std::string buildCommandLine(const std::vector<std::string>& arguments, std::string_view folder);

/// A directory can stand in a great many paths: this much text, in bytes, is no list of files any more.
inline constexpr size_t kLongestPaths = 64 * 1024 * 1024;

enum class CommandLineError {
    none,
    unendedDirectory,  ///< "/d:" with no "/ " behind it, so that its directory has no end
    tooLong,           ///< the paths would fill more than `kLongestPaths` bytes
};

/// One line that says what is wrong, for people; empty for `none`.
std::string_view describe(CommandLineError error);

struct SplitCommandLine {
    /// As they stand, to be passed through `CanonicalPath` one by one. None where there is an error.
    std::vector<std::string> paths;
    CommandLineError error = CommandLineError::none;
};

/// Takes a command line apart at quote, blank, quote, and puts the directory that "/d:" names once in the
/// place of each "/d:/" that begins one of the files. The switch counts where it begins the line, or an
/// argument without quotes; inside a path "/d:" is the name of a folder. A path may be empty (a new
/// document): so may the text, which holds one empty path.
SplitCommandLine splitCommandLine(std::string_view commandLine);

}  // namespace klt
