#include "platform/CommandLine.h"

#include "platform/Paths.h"
#include "text/TextOperations.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kDirectorySwitch = "/d:";
constexpr std::string_view kDirectoryInPath = "/d:/";
constexpr std::string_view kSeparator = "\" \"";

bool beginsWithSwitch(std::string_view text) {
    return text.size() >= kDirectorySwitch.size() && text[0] == '/' && (text[1] == 'd' || text[1] == 'D') &&
           text[2] == ':';
}

/// The place of "/d:" in any case, from 0.
size_t findSwitch(std::string_view text) {
    for (size_t at = text.find('/'); at != text.npos; at = text.find('/', at + 1))
        if (beginsWithSwitch(text.substr(at))) return at;
    return text.npos;
}

/// How many "/d:/" may be replaced, in any case.
size_t placesOfDirectory(std::string_view text) {
    size_t count = 0;
    for (size_t at = findSwitch(text); at != text.npos; text.remove_prefix(at + 1), at = findSwitch(text))
        ++count;
    return count;
}

std::string quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

/// A "\" counts as "/", here too. An empty path stays what it is: a new document.
std::string absolutePath(std::string_view path, std::string_view folder) {
    const bool isFull = !path.empty() && (path[0] == '/' || path[0] == '\\');
    // With no folder known, "/a" would be another file.
    if (path.empty() || folder.empty() || isFull) return std::string(path);
    return std::string(folder) + (folder.ends_with('/') ? "" : "/") + std::string(path);
}

size_t characters(std::string_view text) {
    size_t count = 0;
    for (size_t at = 0; at < text.size(); ++count) at += characterAt(text, at).length;
    return count;
}

/// At most the first `count` characters.
std::string_view firstCharacters(std::string_view text, size_t count) {
    size_t end = 0;
    while (end < text.size() && count-- > 0) end += characterAt(text, end).length;
    return text.substr(0, end);
}

}  // namespace

std::string buildCommandLine(const std::vector<std::string>& arguments, std::string_view folder) {
    std::string line;
    bool switchSeen = false;
    for (const auto& argument : arguments) {
        if (!line.empty()) line += ' ';
        if (!beginsWithSwitch(argument)) {
            line += quoted(absolutePath(argument, folder));
            continue;
        }
        const bool bare = !switchSeen && argument.ends_with('/');
        line += bare ? argument : quoted(argument);
        switchSeen = true;
    }
    return line;
}

std::string_view describe(CommandLineError error) {
    switch (error) {
        case CommandLineError::none:
            break;
        case CommandLineError::unendedDirectory:
            return "The directory behind \"/d:\" does not end in \"/\" and a blank.";
        case CommandLineError::tooLong:
            return "The paths with the directory behind \"/d:\" are too long.";
    }
    return "";
}

SplitCommandLine splitCommandLine(std::string_view commandLine) {
    auto rest = StripEnclosingQuotes(commandLine);
    const auto at = findSwitch(rest);
    if (at == rest.npos) return {SplitText(rest, kSeparator), {}};

    const auto slash = rest.find("/ ", at + 1);
    if (slash == rest.npos) return {{}, CommandLineError::unendedDirectory};
    // Wanted: the length is counted from the line's start and not from the switch, and takes in the slash
    // when the line begins with the switch.
    const auto length = characters(std::string_view(rest).substr(0, slash + 1)) - kDirectorySwitch.size();
    const auto directory =
        CanonicalPath(firstCharacters(std::string_view(rest).substr(at + kDirectorySwitch.size()), length));
    rest = StripEnclosingQuotes(std::string_view(rest).substr(slash + 2));

    if (placesOfDirectory(rest) * directory.size() > kLongestPaths) return {{}, CommandLineError::tooLong};
    auto paths = SplitText(rest, kSeparator);
    for (auto& path : paths) path = FastReplace(path, kDirectoryInPath, directory, false);
    return {std::move(paths), {}};
}

}  // namespace klt
