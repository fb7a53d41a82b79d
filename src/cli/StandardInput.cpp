#include "cli/StandardInput.h"

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <vector>

#include "text/LargePages.h"

namespace klt {

namespace {

constexpr size_t kChunk = size_t{256} << 10;

// In bytes; 0 where the size isn't known beforehand, as with a pipe.
size_t expectedSize(int descriptor) {
    struct stat info {};
    if (fstat(descriptor, &info) != 0 || !S_ISREG(info.st_mode)) return 0;
    return std::min(static_cast<size_t>(info.st_size), kLargestFile);
}

int append(int descriptor, std::string& bytes) {
    reserveLarge(bytes, std::max(expectedSize(descriptor), kChunk));
    std::vector<char> chunk(kChunk);
    for (;;) {
        const auto got = read(descriptor, chunk.data(), chunk.size());
        if (got == 0) return 0;
        if (got > 0) {
            if (bytes.capacity() - bytes.size() < static_cast<size_t>(got))
                reserveLarge(bytes, 2 * bytes.capacity());
            bytes.append(chunk.data(), static_cast<size_t>(got));
            if (bytes.size() > kLargestFile) return EFBIG;
        } else if (errno == EAGAIN) {
            pollfd ready{descriptor, POLLIN, 0};
            poll(&ready, 1, -1);
        } else if (errno != EINTR) {
            return errno;
        }
    }
}

}  // namespace

FileBytes readToEnd(int descriptor) {
    FileBytes result;
    try {
        result.error = systemFailure(append(descriptor, result.bytes));
    } catch (const std::bad_alloc&) {
        result.error = systemFailure(ENOMEM);
    }
    if (result.error) result.bytes.clear();
    return result;
}

}  // namespace klt
