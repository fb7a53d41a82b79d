#include "platform/InPlaceWriter.h"

#include <unistd.h>

#include <cerrno>

#include "platform/FileCalls.h"
#include "platform/FileReader.h"
#include "platform/KeptCopies.h"
#include "platform/NewFile.h"

namespace klt {

namespace {

int setSize(int file, size_t size) {
    return ftruncate(file, static_cast<off_t>(size)) == 0 ? 0 : errno;
}

// The part behind the old end is written first: a full disk refuses that part, and nothing is lost by then.
int overwrite(int file, size_t oldSize, std::string_view bytes) {
    if (bytes.size() > oldSize) {
        if (const int error = writeAll(file, bytes.substr(oldSize), oldSize)) {
            setSize(file, oldSize);
            return error;
        }
    }
    if (const int error = writeAll(file, bytes.substr(0, oldSize))) return error;
    if (const int error = setSize(file, bytes.size())) return error;
    return flush(file);
}

}  // namespace

Failure writeInPlace(const std::string& path, int file, const struct stat& info, std::string_view bytes) {
    removeLeftFiles(folderOf(path));
    const auto old = readFile(path);
    if (old.error) return "The old file can't be kept: " + *old.error;
    KeptCopy copy(path, old.bytes);
    if (copy.error()) return copy.error();
    const int error = overwrite(file, old.bytes.size(), bytes);
    // Writing clears the set-user and set-group bits. Only the owner may set them again: others go without.
    if ((info.st_mode & (S_ISUID | S_ISGID)) != 0 && fchmod(file, info.st_mode & 07777) != 0) errno = 0;
    if (error != 0 && overwrite(file, old.bytes.size(), old.bytes) != 0)
        return *systemFailure(error) + ". The old text is kept in " + copy.path();
    copy.discard();
    return systemFailure(error);
}

}  // namespace klt
