#include "platform/KeepBeside.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <tuple>

#include "platform/Descriptor.h"
#include "platform/FileAttributes.h"
#include "platform/FileCalls.h"
#include "platform/FileReader.h"
#include "platform/NewFile.h"
#include "text/Unicode.h"

namespace klt {
namespace {

constexpr int kMostNames = 1000;
// A copy never runs with the rights of somebody else.
constexpr mode_t kPermissions = 0777;

// Tries `take` with one name after another, as long as it gives EEXIST. A name that is too long with what is
// put behind it is cut.
int takeFreeName(const std::string& path, std::string& kept,
                 const std::function<int(const std::string&)>& take) {
    constexpr size_t kEnding = 4;
    auto stem = path;
    int error = EEXIST;
    for (int number = 1; error == EEXIST && number < kMostNames; ++number) {
        const auto ending = "~" + (number == 1 ? std::string() : std::to_string(number));
        kept = stem + ending;
        error = take(kept);
        if (error != ENAMETOOLONG || stem.size() != path.size()) continue;
        auto cut = stem.size() - kEnding;
        while (isContinuation(stem[cut])) --cut;
        stem.resize(cut);
        kept = stem + ending;
        error = take(kept);
    }
    return error;
}

// What a file system without links gives, or one that refuses another to this file.
bool takesNoLink(int error) {
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

int fill(NewFile& copy, const std::string& original, const std::string& bytes) {
    if (copy.error() != 0) return copy.error();
    struct stat info {};
    const Descriptor file(open(original.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file || fstat(file.number(), &info) != 0) return errno;
    std::ignore = copyAttributes(file.number(), info, copy.number());
    if (const int error = copy.write(bytes)) return error;
    if (fchmod(copy.number(), info.st_mode & kPermissions) != 0) return errno;
    return flush(copy.number());
}

}  // namespace

KeptBeside keepBeside(const std::string& path) {
    const auto original = linkTarget(path);
    const auto old = readFile(original);
    if (old.error) return {{}, old.error};
    NewFile copy(folderOf(original), S_IRUSR | S_IWUSR);
    int error = fill(copy, original, old.bytes);
    std::string kept;
    if (error == 0)
        error = takeFreeName(original, kept, [&copy](const std::string& name) { return copy.publish(name); });
    return {copy.isNamed() ? kept : std::string(), systemFailure(error)};
}

int moveBeside(const std::string& path, std::string& kept) {
    return takeFreeName(path, kept, [&path](const std::string& name) {
        const int error = link(path.c_str(), name.c_str()) == 0 ? 0 : errno;
        // Another user's file, or no links: it is renamed, and nothing has its old name for a moment.
        return takesNoLink(error) ? renameToFree(path, name) : error;
    });
}

}  // namespace klt
