#include "platform/Instances.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <memory>

#include "platform/FileCalls.h"
#include "text/TextSearch.h"
#include "text/Unicode.h"

namespace klt {

namespace {

constexpr std::string_view kLockName = "first.lock";
constexpr std::string_view kEntrySuffix = ".window";
constexpr std::string_view kSocketSuffix = ".socket";
constexpr size_t kIdLength = 24;
// A socket's address holds 108 bytes; some systems less.
constexpr size_t kLongestSocketPath = 100;
// The sticky bit keeps a runtime folder's cleaning away from files that nobody touches for hours.
constexpr mode_t kFileMode = S_ISVTX | S_IRUSR | S_IWUSR;
constexpr size_t kLongestEntry = 65536;

bool isOwnFolder(const Descriptor& folder) {
    struct stat status {};
    return ::fstat(folder.number(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & 0777) == 0700;
}

Descriptor openFolder(const std::string& path) {
    const bool fits = path.size() + 1 + kIdLength + kSocketSuffix.size() <= kLongestSocketPath;
    if (!path.starts_with('/') || !fits) return {};
    ::mkdir(path.c_str(), 0700);
    Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return folder && isOwnFolder(folder) ? std::move(folder) : Descriptor();
}

Descriptor openIn(const Descriptor& folder, const std::string& name, int flags) {
    return Descriptor(
        ::openat(folder.number(), name.c_str(), flags | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0600));
}

bool lock(const Descriptor& file) {
    return ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

/// Asked with a shared lock, so that two who ask at once don't take each other for the owner.
bool isLocked(const Descriptor& file) {
    return ::flock(file.number(), LOCK_SH | LOCK_NB) != 0;
}

/// Sorts by the time of the call, and never comes twice: another process may still be about to remove the
/// entry that had the name before.
std::string newId() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    const auto nanoseconds =
        static_cast<uint64_t>(now.tv_sec) * 1'000'000'000 + static_cast<uint64_t>(now.tv_nsec);
    uint32_t chance = 0;
    if (::getrandom(&chance, sizeof chance, 0) != sizeof chance) chance = static_cast<uint32_t>(::getpid());
    std::array<char, kIdLength + 1> id{};
    std::snprintf(id.data(), id.size(), "%016llx%08x", static_cast<unsigned long long>(nanoseconds), chance);
    return id.data();
}

std::string readWhole(const Descriptor& file) {
    std::string content(kLongestEntry, '\0');
    const auto count = ::pread(file.number(), content.data(), content.size(), 0);
    content.resize(count < 0 ? 0 : static_cast<size_t>(count));
    return content;
}

bool writeWhole(const Descriptor& file, std::string_view content) {
    return writeAll(file.number(), content) == 0 &&
           ::ftruncate(file.number(), static_cast<off_t>(content.size())) == 0;
}

/// Class, socket, title, each ended by a NUL: what can change comes last. Nothing for an entry that is not
/// yet, or not wholly, written.
std::optional<WindowEntry> parseEntry(std::string_view content) {
    std::array<std::string, 3> fields;
    for (auto& field : fields) {
        const auto end = content.find('\0');
        if (end == content.npos) return {};
        field = content.substr(0, end);
        content.remove_prefix(end + 1);
    }
    return WindowEntry{fields[2], fields[0], fields[1]};
}

}  // namespace

Instances::Instances(std::string folder) : path_(std::move(folder)), folder_(openFolder(path_)) {}

bool Instances::holdsLock() {
    if (lock_) return true;
    auto file = openIn(folder_, std::string(kLockName), O_RDWR | O_CREAT);
    // Where no lock file can be made no other process has one either.
    if (!file) return true;
    if (!lock(file)) return false;
    ::fchmod(file.number(), kFileMode);
    writeWhole(file, std::to_string(::getpid()) + '\n');
    lock_ = std::move(file);
    return true;
}

bool Instances::earlierInstanceExists() {
    if (alone()) return false;
    return !holdsLock() || !liveEntries().empty();
}

std::vector<Instances::LiveEntry> Instances::liveEntries() const {
    std::vector<LiveEntry> entries;
    if (alone()) return entries;
    // The kept descriptor would go on where the last reading stopped.
    Descriptor again(::openat(folder_.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(again ? ::fdopendir(again.number()) : nullptr,
                                                      ::closedir);
    if (!listing) return entries;
    again.release();
    while (const auto* file = ::readdir(listing.get())) {
        const std::string_view name = file->d_name;
        if (name.size() != kIdLength + kEntrySuffix.size() || !name.ends_with(kEntrySuffix)) continue;
        std::string id(name.substr(0, kIdLength));
        if (std::find(own_.begin(), own_.end(), id) != own_.end()) continue;
        if (auto content = readIfLive(id)) entries.push_back({std::move(id), std::move(*content)});
    }
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.id < b.id; });
    return entries;
}

std::optional<std::string> Instances::readIfLive(const std::string& id) const {
    const auto file = openIn(folder_, id + std::string(kEntrySuffix), O_RDONLY);
    if (!file) return {};
    if (isLocked(file)) return readWhole(file);
    // Nobody holds it: its owner is dead, or has not locked it yet, and then makes another entry.
    removeEntry(id);
    return {};
}

void Instances::removeEntry(const std::string& id) const {
    for (const auto suffix : {kEntrySuffix, kSocketSuffix})
        ::unlinkat(folder_.number(), (id + std::string(suffix)).c_str(), 0);
}

std::vector<WindowEntry> Instances::FindMatchingWindows(std::string_view title,
                                                        std::string_view windowClass) const {
    const TextSearch fragment(title, false);
    std::vector<WindowEntry> windows;
    for (const auto& live : liveEntries()) {
        auto entry = parseEntry(live.content);
        if (!entry || !equalIgnoringCase(entry->windowClass, windowClass)) continue;
        if (title.empty() || fragment.next(entry->title, 0).start != kNotFound)
            windows.push_back(std::move(*entry));
    }
    return windows;
}

std::optional<WindowRegistration> Instances::registerWindow() {
    // An entry can be cleared away between its making and its locking, by one who takes it for dead.
    constexpr int kTries = 20;
    for (int i = 0; i < kTries && !alone(); ++i) {
        auto id = newId();
        auto file = openIn(folder_, id + std::string(kEntrySuffix), O_RDWR | O_CREAT | O_EXCL);
        struct stat status {};
        if (!file || !lock(file) || ::fstat(file.number(), &status) != 0 || status.st_nlink == 0) continue;
        ::fchmod(file.number(), kFileMode);
        own_.push_back(id);
        return WindowRegistration(*this, std::move(id), std::move(file));
    }
    return {};
}

WindowRegistration::WindowRegistration(Instances& instances, std::string id, Descriptor file)
    : instances_(&instances), id_(std::move(id)), file_(std::move(file)) {}

WindowRegistration::WindowRegistration(WindowRegistration&& other) noexcept
    : instances_(std::exchange(other.instances_, nullptr)),
      id_(std::move(other.id_)),
      file_(std::move(other.file_)) {}

WindowRegistration::~WindowRegistration() {
    if (instances_ == nullptr) return;
    instances_->removeEntry(id_);
    std::erase(instances_->own_, id_);
}

std::string WindowRegistration::socketPath() const {
    return instances_->path_ + '/' + id_ + std::string(kSocketSuffix);
}

bool WindowRegistration::publish(std::string_view title, std::string_view windowClass) {
    const auto socket = socketPath();
    std::string content;
    for (const std::string_view field : {windowClass, std::string_view(socket), title})
        content.append(field) += '\0';
    return writeWhole(file_, content);
}

std::optional<WindowEntry> waitForPreviousInstance(
    Instances& instances, const std::function<void(std::chrono::milliseconds)>& sleep) {
    constexpr std::chrono::milliseconds kStep{250}, kLimit{10000};
    for (auto slept = kStep.zero(); slept < kLimit && instances.earlierInstanceExists(); slept += kStep) {
        const auto windows = instances.FindMatchingWindows(kWindowTitleSought, kMainWindowClass);
        sleep(kStep);
        if (!windows.empty()) return windows.front();
    }
    return {};
}

}  // namespace klt
