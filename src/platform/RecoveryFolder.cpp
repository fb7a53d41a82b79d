#include "platform/RecoveryFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>

#include "platform/FileCalls.h"
#include "platform/FileReader.h"
#include "platform/KeptCopies.h"
#include "platform/NewFile.h"
#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace klt {
namespace {

constexpr int kMostNames = 10000;
constexpr size_t kLongestStem = 200;
constexpr mode_t kPrivate = S_IRUSR | S_IWUSR;
// Hidden names are no texts.
constexpr std::string_view kAbout = ".about-";
constexpr std::string_view kOwner = ".owner-";

std::string recoveryFolder() {
    auto folder = stateFolder() + "/recovery";
    makePrivateFolder(folder);
    return folder;
}

// "harbor.klt", then "harbor-2.klt" and so on; never hidden.
std::string nameFor(const std::string& documentName, int number) {
    auto name = FileName(documentName);
    if (name.empty() || name.starts_with('.')) name.insert(0, "document");
    const auto extension = FileExtension(name);
    const auto ending = extension.empty() || extension.size() > 16 ? std::string() : "." + extension;
    const auto stem = name.substr(0, std::min(name.size() - ending.size(), kLongestStem));
    return stem + (number == 1 ? "" : "-" + std::to_string(number)) + ending;
}

std::string aboutPath(const std::string& path) {
    return folderOf(path) + "/" + std::string(kAbout) + FileName(path);
}

std::string ownerPath(const std::string& folder, const std::string& owner) {
    return folder + "/" + std::string(kOwner) + owner;
}

bool isThere(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0;
}

/// Writes a new file that takes its name by `take`, a function of the file.
template <typename Take>
int writeNew(const std::string& folder, std::string_view bytes, Take take) {
    NewFile file(folder, kPrivate);
    int error = file.error();
    if (error == 0) error = file.write(bytes);
    if (error == 0) error = flush(file.number());
    return error == 0 ? take(file) : error;
}

int replaceFile(const std::string& path, std::string_view bytes) {
    return writeNew(folderOf(path), bytes, [&path](NewFile& file) { return file.replace(path); });
}

/// Of the hidden files with that beginning, what stands behind it.
std::vector<std::string> namesBehind(const std::string& folder, std::string_view beginning) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const auto name = entry->path().filename().string();
        if (name.starts_with(beginning)) names.push_back(name.substr(beginning.size()));
    }
    return names;
}

std::vector<std::string> textsIn(const std::string& folder) {
    std::vector<std::string> texts;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        const auto path = entry->path().string();
        if (entry->is_regular_file(unknown) && !FileName(path).starts_with('.')) texts.push_back(path);
    }
    return texts;
}

time_t timeOf(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 ? info.st_mtime : 0;
}

}  // namespace

RecoveryFolder::~RecoveryFolder() {
    // The file stays while texts stay whose owner it tells of.
    if (lock_ && kept_.empty()) unlink(ownerPath(recoveryFolder(), owner_).c_str());
}

/// Makes the file whose lock tells that this editor lives. Where files can't be locked it does without.
int RecoveryFolder::lockOwner(const std::string& folder) {
    constexpr int kMostTries = 100;
    // The folder may have been emptied.
    if (lock_ && !isThere(ownerPath(folder, owner_))) lock_ = {};
    for (int tries = kMostTries; tries > 0 && !lock_; --tries) {
        const auto name = unguessableName();
        const auto path = ownerPath(folder, name);
        Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kPrivate));
        if (!file) return errno;
        // Another editor that clears away may have come first.
        const bool isTaken = flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (isTaken || !isThere(path)) continue;
        owner_ = name;
        lock_ = std::move(file);
    }
    return lock_ ? 0 : EBUSY;
}

/// Finds a free name for a text by making the file beside it, which must be there first: a text of which
/// nothing is known is anybody's to offer.
int RecoveryFolder::reserveName(const std::string& folder, const KeptAbout& about, std::string& path) {
    int error = EEXIST;
    const auto bytes = writeAbout(about, owner_);
    for (int number = 1; error == EEXIST && number < kMostNames; ++number) {
        path = folder + "/" + nameFor(about.name, number);
        if (isThere(path) || isThere(aboutPath(path))) continue;
        error = writeNew(folder, bytes, [&path](NewFile& file) { return file.publish(aboutPath(path)); });
    }
    return error;
}

RecoveryFolder::Kept RecoveryFolder::keep(const std::string& path, const KeptAbout& about,
                                          std::string_view text) {
    const auto folder = recoveryFolder();
    try {
        Kept kept{path, {}};
        int error = 0;
        {
            const std::lock_guard lock(guard_);
            error = lockOwner(folder);
            if (error == 0 && path.empty()) error = reserveName(folder, about, kept.path);
            if (error == 0) kept_.insert(kept.path);
        }
        if (error == 0 && !path.empty()) error = replaceFile(aboutPath(path), writeAbout(about, owner_));
        if (error == 0) error = replaceFile(kept.path, encode(text, about.encoding).bytes());
        if (error == 0) return kept;
        if (path.empty() && !kept.path.empty()) remove(kept.path);
        return {folder, systemFailure(error)};
    } catch (const std::bad_alloc&) {
        return {folder, systemFailure(ENOMEM)};
    }
}

void RecoveryFolder::remove(const std::string& path) {
    if (path.empty()) return;
    // The text first: one that nothing tells of would be offered.
    unlink(path.c_str());
    unlink(aboutPath(path).c_str());
    const std::lock_guard lock(guard_);
    kept_.erase(path);
}

/// Whether the texts of `owner` may be offered here: it lives no longer, and nobody else has taken them.
bool RecoveryFolder::isMine(const std::string& folder, const std::string& owner) {
    if (owner == owner_) return false;
    if (left_.contains(owner)) return true;
    Descriptor file(open(ownerPath(folder, owner).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    if (!file) return true;
    if (flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
    left_.emplace(owner, std::move(file));
    return true;
}

/// Takes away what tells of texts that are gone, and of owners that left none.
void RecoveryFolder::clearAway(const std::string& folder) {
    std::set<std::string> owners;
    for (const auto& name : namesBehind(folder, kAbout)) {
        const auto path = std::string(folder).append("/").append(name);
        const auto read = readAbout(readFile(aboutPath(path)).bytes);
        if (read && (isThere(path) || !isMine(folder, read->owner))) {
            owners.insert(read->owner);
        } else if (!isThere(path)) {
            unlink(aboutPath(path).c_str());
        }
    }
    for (const auto& owner : namesBehind(folder, kOwner))
        if (!owners.contains(owner) && isMine(folder, owner)) unlink(ownerPath(folder, owner).c_str());
}

std::vector<LeftText> RecoveryFolder::takeLeft() {
    const std::lock_guard lock(guard_);
    const auto folder = recoveryFolder();
    std::vector<LeftText> texts;
    clearAway(folder);
    for (const auto& path : textsIn(folder)) {
        const auto bytes = readFile(aboutPath(path));
        // Of one that can't be read it is not known whether its editor lives.
        if (bytes.error && isThere(aboutPath(path))) continue;
        const auto read = readAbout(bytes.bytes);
        if (read && !isMine(folder, read->owner)) continue;
        texts.push_back({path, read ? read->about : KeptAbout(), timeOf(path)});
    }
    std::ranges::sort(texts, {}, [](const LeftText& it) { return std::pair(it.when, it.path); });
    return texts;
}

Failure RecoveryFolder::dismiss(const std::string& path) {
    auto failure = dismissKeptFile(path);
    if (!failure) remove(path);
    return failure;
}

}  // namespace klt
