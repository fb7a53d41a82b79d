#include "platform/FileCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/Descriptor.h"
#include "platform/Paths.h"

namespace klt {

namespace {

constexpr int kMostLinks = 40;

// While one stands, writing behind the file-size limit gives this thread an error, not a deadly signal.
class SizeSignalHeldBack {
public:
    SizeSignalHeldBack() {
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &signal_, &before_);
    }
    ~SizeSignalHeldBack() {
        constexpr timespec kNoWait{};
        while (sigtimedwait(&signal_, nullptr, &kNoWait) == SIGXFSZ) continue;
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    SizeSignalHeldBack(const SizeSignalHeldBack&) = delete;
    SizeSignalHeldBack& operator=(const SizeSignalHeldBack&) = delete;

private:
    sigset_t signal_{};
    sigset_t before_{};
};

}  // namespace

int writeAll(int file, std::string_view bytes, size_t offset) {
    const SizeSignalHeldBack held;
    while (!bytes.empty()) {
        const auto written = pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        if (written == 0) return ENOSPC;
        bytes.remove_prefix(static_cast<size_t>(written));
        offset += static_cast<size_t>(written);
    }
    return 0;
}

int flush(int file) {
    while (fsync(file) != 0)
        if (errno != EINTR) return errno;
    return 0;
}

int flushFolder(const std::string& folder) {
    const Descriptor entries(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!entries) return 0;
    const int error = flush(entries.number());
    return error == EINVAL || error == EROFS ? 0 : error;
}

int renameToFree(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) {
        if (errno != EINVAL && errno != ENOSYS) return errno;
        // The file system does not know this way of renaming.
        if (link(from.c_str(), to.c_str()) != 0) return errno;
        if (unlink(from.c_str()) != 0) return errno;
    }
    return 0;
}

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == path.npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string linkTarget(const std::string& path) {
    std::string target = path;
    for (int links = 0; links < kMostLinks; ++links) {
        char text[PATH_MAX];
        const auto length = readlink(target.c_str(), text, sizeof text);
        if (length <= 0) break;
        const std::string_view next(text, static_cast<size_t>(length));
        target = next.starts_with('/') ? std::string(next) : folderOf(target).append("/").append(next);
    }
    const std::unique_ptr<char, decltype(&std::free)> folder(realpath(folderOf(target).c_str(), nullptr),
                                                             &std::free);
    if (folder == nullptr || path.empty()) return target;
    const auto name = target.substr(target.rfind('/') + 1);
    const std::string_view real = folder.get();
    return std::string(real == "/" ? "" : real).append("/").append(name);
}

}  // namespace klt
