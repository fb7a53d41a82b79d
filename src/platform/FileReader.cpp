#include "platform/FileReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <vector>

#include "platform/Descriptor.h"
#include "text/LargePages.h"

namespace klt {

namespace {

// Small enough to stay in the processor's cache on its way into the text.
constexpr size_t kChunk = size_t{256} << 10;
constexpr int kTries = 3;

FileBytes failed(int errorNumber) {
    return {{}, systemFailure(errorNumber)};
}

// The time of change alone is too coarse. Files that the system makes up, as in /proc, have the size 0.
bool isSteady(const struct stat& a, const struct stat& b, size_t got) {
    const bool isWhole = b.st_size == 0 || static_cast<size_t>(b.st_size) == got;
    return isWhole && a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
           a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

// Reads from the start to the end, wherever that is by now; gives the error number. Chunks are appended: a
// string that is made as long as the file would be filled twice, and a mapped file that shrinks kills its
// reader.
int readWhole(int file, size_t expected, size_t largest, std::string& bytes) {
    bytes.clear();
    reserveLarge(bytes, expected);
    std::vector<char> chunk(kChunk);
    for (;;) {
        const auto got = pread(file, chunk.data(), chunk.size(), static_cast<off_t>(bytes.size()));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) return 0;
        bytes.append(chunk.data(), static_cast<size_t>(got));
        if (bytes.size() > largest) return EFBIG;
    }
}

FileBytes readSteady(int file, size_t largest) {
    for (int i = 0; i < kTries; ++i) {
        struct stat before {
        }, after{};
        if (fstat(file, &before) != 0) return failed(errno);
        const auto expected = static_cast<size_t>(before.st_size);
        if (expected > largest) return failed(EFBIG);
        FileBytes result;
        if (const int error = readWhole(file, expected, largest, result.bytes)) return failed(error);
        if (fstat(file, &after) != 0) return failed(errno);
        result.identity = identityOf(after);
        if (isSteady(before, after, result.bytes.size())) return result;
    }
    return {{}, "The file keeps changing"};
}

}  // namespace

FileBytes readFile(const std::string& path, size_t largest) {
    // Not waiting matters for a FIFO, and is without effect on a plain file.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) return failed(errno);
    struct stat info {};
    if (fstat(file.number(), &info) != 0) return failed(errno);
    if (S_ISDIR(info.st_mode)) return failed(EISDIR);
    if (!S_ISREG(info.st_mode)) return {{}, "Not a plain file"};
    try {
        return readSteady(file.number(), largest);
    } catch (const std::bad_alloc&) {
        return failed(ENOMEM);
    }
}

TextFile textOf(FileBytes file, size_t largest) {
    if (file.error) return {{}, Encoding::Any, std::move(file.error)};
    try {
        auto decoded = decode(std::move(file.bytes));
        if (std::max(decoded.text.size(), decoded.fileSize) > largest)
            return {{}, Encoding::Any, systemFailure(EFBIG)};
        return {std::move(decoded.text), decoded.encoding, std::nullopt};
    } catch (const std::bad_alloc&) {
        return {{}, Encoding::Any, systemFailure(ENOMEM)};
    }
}

TextFile readTextFile(const std::string& path, size_t largest) {
    return textOf(readFile(path, largest), largest);
}

}  // namespace klt
