#include "platform/CommandLine.h"

#include <utility>

#include "platform/Paths.h"
#include "text/Ascii.h"
#include "text/TextOperations.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kSeparator = "\" \"";

/// The offsets of each "/d:" that begins an argument: at the start, behind a blank outside quotes, or
/// behind a quote that opens. A quote opens an argument and closes it; one in the middle is a character like
/// others. `isQuoted`: the text begins inside quotes.
std::vector<size_t> switchesOf(std::string_view text, bool isQuoted) {
    std::vector<size_t> offsets;
    bool isFirst = true;
    for (size_t at = 0; at < text.size(); ++at) {
        const bool isLast = at + 1 == text.size() || text[at + 1] == ' ';
        const bool isQuote = text[at] == '"' && (isQuoted ? isLast : isFirst);
        if (isFirst && beginsWithSwitch(text.substr(at))) offsets.push_back(at);
        if (isQuote) isQuoted = !isQuoted;
        isFirst = isQuoted ? isQuote : text[at] == ' ';
    }
    return offsets;
}

/// The offset of the switch that names the directory; `npos` without one.
size_t findSwitch(std::string_view text, bool isQuoted) {
    for (const size_t at : switchesOf(text, isQuoted))
        if (at == 0 || text[at - 1] == ' ') return at;
    return text.npos;
}

/// The offsets of the "/d:/" in whose place the directory comes.
std::vector<size_t> directoriesIn(std::string_view path, bool isQuoted) {
    auto offsets = switchesOf(path, isQuoted);
    std::erase_if(offsets,
                  [path](size_t at) { return !path.substr(at + kDirectorySwitch.size()).starts_with('/'); });
    return offsets;
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

std::string withDirectory(std::string_view path, const std::vector<size_t>& offsets,
                          std::string_view directory) {
    std::string result;
    size_t start = 0;
    for (const size_t at : offsets) {
        result.append(path.substr(start, at - start)).append(directory);
        start = at + kDirectorySwitch.size() + 1;
    }
    return result.append(path.substr(start));
}

/// The paths of a list of files, each with the directory where it refers to it.
SplitCommandLine filesIn(std::string_view list, const std::string& directory) {
    const auto files = StripEnclosingQuotes(list);
    auto paths = SplitText(files, kSeparator);
    bool isQuoted = files.size() < trimBlanks(list).size();
    size_t length = 0;
    for (auto& path : paths) {
        const auto offsets = directoriesIn(path, std::exchange(isQuoted, true));
        length += offsets.size() * directory.size();
        if (length > kLongestPaths) return {{}, CommandLineError::tooLong};
        path = withDirectory(path, offsets, directory);
    }
    return {std::move(paths), {}};
}

}  // namespace

bool beginsWithSwitch(std::string_view text) {
    return equalIgnoringAsciiCase(text.substr(0, kDirectorySwitch.size()), kDirectorySwitch);
}

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
    const auto at = findSwitch(rest, rest.size() < trimBlanks(commandLine).size());
    if (at == rest.npos) return {SplitText(rest, kSeparator), {}};

    const auto slash = rest.find("/ ", at + 1);
    if (slash == rest.npos) return {{}, CommandLineError::unendedDirectory};
    // The system counts the directory's length from the line's start, not from the switch: it takes in the
    // slash only where the line begins with the switch.
    const auto length = characters(std::string_view(rest).substr(0, slash + 1)) - kDirectorySwitch.size();
    const auto directory =
        CanonicalPath(firstCharacters(std::string_view(rest).substr(at + kDirectorySwitch.size()), length));
    return filesIn(std::string_view(rest).substr(slash + 2), directory);
}

}  // namespace klt
