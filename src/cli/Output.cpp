#include "cli/Output.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

namespace klt {

namespace {

constexpr size_t kBuffer = size_t{64} << 10;

}  // namespace

void Output::write(std::string_view bytes) {
    if (buffer_.size() + bytes.size() > kBuffer) flush();
    if (bytes.size() > kBuffer) {
        send(bytes);
    } else {
        buffer_ += bytes;
    }
}

void Output::flush() {
    send(buffer_);
    buffer_.clear();
}

bool Output::isTerminal() const {
    return isatty(descriptor_) == 1;
}

size_t Output::columns() const {
    winsize size{};
    return ioctl(descriptor_, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

void Output::send(std::string_view bytes) {
    while (!bytes.empty() && error_ == 0) {
        const auto written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<size_t>(written));
        } else if (errno == EAGAIN) {
            // A descriptor that someone else has set not to wait.
            pollfd ready{descriptor_, POLLOUT, 0};
            poll(&ready, 1, -1);
        } else if (errno != EINTR) {
            error_ = errno;
        }
    }
}

}  // namespace klt
