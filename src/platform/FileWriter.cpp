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

int replaceKeepingOld(const Target& target, NewFile& fresh, std::string& kept) {
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

// What may happen to the file that stands there.
struct WriteRule {
    OldFile old = OldFile::Replaced;
    // The only version that may be replaced; null where every one may.
    const FileIdentity* seen = nullptr;
    // Null where nobody calls the write off.
    PointOfNoReturn* point = nullptr;

    bool keeps(const struct stat& info) const {
        return old == OldFile::KeptBeside || (seen && identityOf(info) != *seen);
    }
    bool mayGoOn() const { return !point || point->pass(); }
};

// `kept` takes where the old file is kept, if it is.
int fillAndReplace(const Target& target, NewFile& fresh, std::string_view bytes, const WriteRule& rule,
                   std::string& kept) {
    if (const int error = fresh.write(bytes)) return error;
    if (target.exists() && fchmod(fresh.number(), target.info.st_mode & kModeBits) != 0) return errno;
    if (const int error = flush(fresh.number())) return error;
    if (!rule.mayGoOn()) return ECANCELED;
    // Another program may have written it meanwhile.
    struct stat info {};
    const bool keeps = lstat(target.path.c_str(), &info) == 0 && rule.keeps(info);
    return keeps ? replaceKeepingOld(target, fresh, kept) : fresh.replace(target.path);
}

bool takesNoNewFile(int error) {
    return error == EACCES || error == EPERM || error == EROFS;
}

struct Outcome {
    Failure error;
    FileIdentity identity = {};
    std::string kept = {};
};

Outcome outcomeOf(Failure error, int file, std::string kept = {}) {
    struct stat info {};
    if (error) return {std::move(error)};
    if (fstat(file, &info) != 0) info = {};
    return {std::nullopt, identityOf(info), std::move(kept)};
}

// None where the old file is to be kept and there is no copy of it.
std::optional<Outcome> overwrite(const Target& target, std::string_view bytes, const WriteRule& rule) {
    const auto copy = rule.keeps(target.info) ? keepBeside(target.path) : KeptBeside();
    if (copy.error) return std::nullopt;
    if (!rule.mayGoOn()) {
        if (!copy.path.empty()) unlink(copy.path.c_str());
        return Outcome{systemFailure(ECANCELED)};
    }
    const int file = target.file.number();
    return outcomeOf(writeInPlace(target.path, file, target.info, bytes), file, copy.path);
}

Outcome writeTarget(const Target& target, std::string_view bytes, const WriteRule& rule) {
    const auto inPlace = [&](bool isWanted) {
        return target.exists() && isWanted ? overwrite(target, bytes, rule) : std::nullopt;
    };
    if (auto done = inPlace(target.info.st_nlink > 1 || target.info.st_uid != geteuid())) return *done;
    NewFile fresh(folderOf(target.path), target.exists() ? S_IRUSR | S_IWUSR : kNewFileMode);
    if (auto done = inPlace(takesNoNewFile(fresh.error()))) return *done;
    if (fresh.error() != 0) return {systemFailure(fresh.error())};
    const bool isAlike =
        !target.exists() || copyAttributes(target.file.number(), target.info, fresh.number());
    if (auto done = inPlace(!isAlike)) return *done;
    std::string kept;
    const int error = fillAndReplace(target, fresh, bytes, rule, kept);
    // Something is mounted on the file, or its folder does not let it be replaced.
    const bool isBound = !fresh.isNamed() && (error == EBUSY || takesNoNewFile(error));
    if (auto done = inPlace(isBound)) return *done;
    return outcomeOf(systemFailure(error), fresh.number(), std::move(kept));
}

}  // namespace

bool PointOfNoReturn::decide(State wanted) {
    auto before = State::Open;
    return state_.compare_exchange_strong(before, wanted) || before == wanted;
}

Failure writeFile(const std::string& path, std::string_view bytes, OldFile old, size_t largest) {
    if (bytes.size() > largest) return systemFailure(EFBIG);
    const auto target = openTarget(path);
    return target.error ? target.error : writeTarget(target, bytes, {.old = old}).error;
}

Written writeTextFile(const std::string& path, std::string_view text, Encoding encoding, OldFile old) {
    try {
        const auto encoded = encode(text, encoding);
        return {encoded.encoding(), writeFile(path, encoded.bytes(), old)};
    } catch (const std::bad_alloc&) {
        return {encoding, systemFailure(ENOMEM)};
    }
}

Written writeOverSeen(const std::string& path, std::string_view text, Encoding encoding,
                      const FileIdentity& seen, PointOfNoReturn& point) {
    try {
        const auto encoded = encode(text, encoding);
        if (encoded.bytes().size() > kLargestFile) return {encoding, systemFailure(EFBIG)};
        const auto target = openTarget(path);
        if (target.error) return {encoding, target.error};
        auto outcome = writeTarget(target, encoded.bytes(), {.seen = &seen, .point = &point});
        if (outcome.error) return {encoding, std::move(outcome.error)};
        return {encoded.encoding(), std::nullopt, versionOf(outcome.identity, encoded.bytes()),
                std::move(outcome.kept)};
    } catch (const std::bad_alloc&) {
        return {encoding, systemFailure(ENOMEM)};
    }
}

}  // namespace klt
