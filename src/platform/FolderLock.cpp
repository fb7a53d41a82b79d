#include "platform/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace klt {

FolderLock::Answer FolderLock::share(const std::string& folder, int milliseconds) {
    if (!folder_) folder_ = Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return take(LOCK_SH, milliseconds);
}

FolderLock::Answer FolderLock::claim(int milliseconds) {
    return take(LOCK_EX, milliseconds);
}

FolderLock::Answer FolderLock::take(int operation, int milliseconds) {
    using namespace std::chrono;
    if (!folder_) return Answer::Unsupported;
    const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (flock(folder_.number(), operation | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return Answer::Unsupported;
        if (steady_clock::now() > end) return Answer::Busy;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return Answer::Held;
}

}  // namespace klt
