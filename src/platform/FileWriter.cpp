#include "platform/FileWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <new>

#include "platform/FileAttributes.h"
#include "platform/FileCalls.h"
#include "platform/InPlaceWriter.h"
#include "platform/KeepBeside.h"
#include "platform/NewFile.h"

namespace klt {

namespace {

constexpr mode_t kModeBits = 07777;
constexpr mode_t kNewFileMode = 0666;

// The file that a write means, open for writing where there is one already.
struct Target {
    std::string path;
    Descriptor file;
    struct stat info {};
    Failure error;

    bool exists() const { return static_cast<bool>(file); }
};

Failure notPlain(mode_t mode) {
    if (S_ISREG(mode)) return std::nullopt;
    return S_ISDIR(mode) ? systemFailure(EISDIR) : "Not a plain file";
}

Target openTarget(const std::string& path) {
    Target target;
    target.path = linkTarget(path);
    if (path.empty()) target.error = systemFailure(ENOENT);
    if (target.error) return target;
    if (lstat(target.path.c_str(), &target.info) != 0) {
        if (errno != ENOENT) target.error = systemFailure(errno);
        return target;
    }
    target.error = S_ISLNK(target.info.st_mode) ? systemFailure(ELOOP) : notPlain(target.info.st_mode);
    // Looked at before it is opened, for opening alone can do something to a device.
    if (target.error) return target;
    constexpr int kFlags = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    target.file = Descriptor(open(target.path.c_str(), kFlags));
    if (!target.file || fstat(target.file.number(), &target.info) != 0)
        target.error = systemFailure(errno);
    else
        target.error = notPlain(target.info.st_mode);
    return target;
}

int replaceKeepingOld(const Target& target, NewFile& fresh) {
    std::string kept;
    if (const int error = moveBeside(target.path, kept)) return error;
    const int error = fresh.replace(target.path);
    struct stat info {};
    if (fresh.isNamed()) return error;
    if (lstat(target.path.c_str(), &info) == 0 && info.st_ino == target.info.st_ino)
        unlink(kept.c_str());
    else
        renameToFree(kept, target.path);
    return error;
}

int fillAndReplace(const Target& target, NewFile& fresh, std::string_view bytes, OldFile old) {
    if (const int error = fresh.write(bytes)) return error;
    if (target.exists() && fchmod(fresh.number(), target.info.st_mode & kModeBits) != 0) return errno;
    if (const int error = flush(fresh.number())) return error;
    const bool keeps = target.exists() && old == OldFile::KeptBeside;
    return keeps ? replaceKeepingOld(target, fresh) : fresh.replace(target.path);
}

bool takesNoNewFile(int error) {
    return error == EACCES || error == EPERM || error == EROFS;
}

Failure writeTarget(const Target& target, std::string_view bytes, OldFile old) {
    const bool keeps = old == OldFile::KeptBeside;
    const auto inPlace = [&] { return writeInPlace(target.path, target.file.number(), target.info, bytes); };
    const bool hasTies = target.exists() && (target.info.st_nlink > 1 || target.info.st_uid != geteuid());
    if (hasTies && !keeps) return inPlace();

    NewFile fresh(folderOf(target.path), target.exists() ? S_IRUSR | S_IWUSR : kNewFileMode);
    const bool canBeInPlace = target.exists() && !keeps;
    if (canBeInPlace && takesNoNewFile(fresh.error())) return inPlace();
    if (fresh.error() != 0) return systemFailure(fresh.error());
    const bool isAlike =
        !target.exists() || copyAttributes(target.file.number(), target.info, fresh.number());
    if (canBeInPlace && !isAlike) return inPlace();
    const int error = fillAndReplace(target, fresh, bytes, old);
    // Something is mounted on the file, or its folder does not let it be replaced.
    if (canBeInPlace && !fresh.isNamed() && (error == EBUSY || takesNoNewFile(error))) return inPlace();
    return systemFailure(error);
}

}  // namespace

Failure writeFile(const std::string& path, std::string_view bytes, OldFile old, size_t largest) {
    if (bytes.size() > largest) return systemFailure(EFBIG);
    const auto target = openTarget(path);
    return target.error ? target.error : writeTarget(target, bytes, old);
}

Written writeTextFile(const std::string& path, std::string_view text, Encoding encoding, OldFile old) {
    try {
        const auto encoded = encode(text, encoding);
        return {encoded.encoding(), writeFile(path, encoded.bytes(), old)};
    } catch (const std::bad_alloc&) {
        return {encoding, systemFailure(ENOMEM)};
    }
}

}  // namespace klt
