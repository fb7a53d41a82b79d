#include "platform/KeptAbout.h"

#include <array>
#include <charconv>
#include <utility>

namespace klt {
namespace {

// A line with this word, one of numbers, one with the owner; the name is all the rest, for it may hold
// anything.
constexpr std::string_view kFirstLine = "klt-kept 1\n";
constexpr size_t kNumbers = 14;
using Numbers = std::array<long long, kNumbers>;

std::string_view takeLine(std::string_view& rest) {
    const size_t end = rest.find('\n');
    const auto line = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    return line;
}

std::optional<Numbers> readNumbers(std::string_view line) {
    Numbers numbers{};
    const char* place = line.data();
    const char* const end = place + line.size();
    for (auto& number : numbers) {
        const auto [next, error] = std::from_chars(place, end, number);
        if (error != std::errc()) return std::nullopt;
        place = next == end ? next : next + 1;
    }
    return place == end ? std::optional(numbers) : std::nullopt;
}

FileVersion versionFrom(const Numbers& n) {
    FileVersion version;
    version.identity.device = static_cast<dev_t>(n[4]);
    version.identity.inode = static_cast<ino_t>(n[5]);
    version.identity.size = static_cast<off_t>(n[6]);
    version.identity.modified = {static_cast<time_t>(n[7]), static_cast<long>(n[8])};
    version.identity.changed = {static_cast<time_t>(n[9]), static_cast<long>(n[10])};
    version.size = static_cast<size_t>(n[11]);
    version.hash = static_cast<size_t>(n[12]);
    return version;
}

}  // namespace

std::string writeAbout(const KeptAbout& about, std::string_view owner) {
    const FileVersion seen = about.seen.value_or(FileVersion());
    const FileIdentity& file = seen.identity;
    const Numbers numbers{about.hasFile,
                          static_cast<long long>(about.encoding),
                          about.caret,
                          about.seen.has_value(),
                          static_cast<long long>(file.device),
                          static_cast<long long>(file.inode),
                          file.size,
                          file.modified.seconds,
                          file.modified.nanoseconds,
                          file.changed.seconds,
                          file.changed.nanoseconds,
                          static_cast<long long>(seen.size),
                          static_cast<long long>(seen.hash),
                          about.isFileWanted};
    std::string bytes(kFirstLine);
    for (const auto number : numbers) bytes.append(std::to_string(number)).append(" ");
    bytes.back() = '\n';
    return bytes.append(owner).append("\n").append(about.name);
}

std::optional<OwnedAbout> readAbout(std::string_view bytes) {
    if (!bytes.starts_with(kFirstLine)) return std::nullopt;
    bytes.remove_prefix(kFirstLine.size());
    const auto numbers = readNumbers(takeLine(bytes));
    const bool isWhole = bytes.find('\n') != bytes.npos;
    if (!numbers || !isWhole || (*numbers)[1] < 0 || (*numbers)[1] > static_cast<int>(Encoding::Utf32BE))
        return std::nullopt;
    OwnedAbout read;
    read.owner = takeLine(bytes);
    read.about.name = bytes;
    read.about.hasFile = (*numbers)[0] != 0;
    read.about.encoding = static_cast<Encoding>((*numbers)[1]);
    read.about.caret = static_cast<Position>((*numbers)[2]);
    read.about.isFileWanted = (*numbers)[13] != 0;
    if ((*numbers)[3] != 0) read.about.seen = versionFrom(*numbers);
    return read;
}

}  // namespace klt
