#include "platform/DocumentFile.h"

#include <sys/vfs.h>

#include <utility>

#include "platform/FileCalls.h"
#include "platform/KeptCopies.h"
#include "platform/Paths.h"

namespace klt {

ReadText readText(const std::string& path) {
    auto bytes = readFile(path);
    KnownFile known;
    if (!bytes.error) known.seen = versionOf(bytes.identity, bytes.bytes);
    auto text = textOf(std::move(bytes));
    if (text.error) known = {std::nullopt, lookAtFile(path, {}).identity};
    return {std::move(text), known};
}

std::optional<FoundText> findText(const std::string& path) {
    const auto found = findPathIgnoringCase(path);
    if (!found) return std::nullopt;
    return FoundText{*found, linkTarget(*found), readText(*found), leftoverCopies(*found)};
}

SavedText saveText(const std::string& path, const std::string& text, Encoding encoding,
                   const KnownFile& known, PointOfNoReturn& point) {
    const auto now = lookAtFile(path, known);
    const auto seen = now.state == FileState::AsSeen ? now.identity : FileIdentity();
    auto written = writeOverSeen(path, text, encoding, seen, point);
    return {std::move(written), linkTarget(path)};
}

void askFileSystem(const std::string& path) {
    // Unlike those for a file, answers for the file system itself are not kept.
    struct statfs info {};
    const auto found = findPathIgnoringCase(path);
    statfs(found ? found->c_str() : folderOf(path).c_str(), &info);
}

}  // namespace klt
