#include "platform/HandOver.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/Descriptor.h"
#include "platform/HandOverMessage.h"

namespace klt {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

/// The time up to which something is waited for, or no such time.
class Deadline {
public:
    static Deadline never() { return Deadline(Clock::time_point::max()); }
    explicit Deadline(Milliseconds fromNow) : Deadline(Clock::now() + fromNow) {}

    /// As `poll` takes it: -1 for no limit. Rounded up, so that the last wait is not a spin.
    int left() const {
        if (end_ == Clock::time_point::max()) return -1;
        const auto rest = std::chrono::ceil<Milliseconds>(end_ - Clock::now());
        return static_cast<int>(std::max(rest, Milliseconds::zero()).count());
    }

private:
    explicit Deadline(Clock::time_point end) : end_(end) {}
    Clock::time_point end_;
};

/// False when the deadline has passed.
bool waitFor(const Descriptor& socket, short events, const Deadline& deadline) {
    pollfd entry{socket.number(), events, 0};
    for (;;) {
        const int count = ::poll(&entry, 1, deadline.left());
        if (count > 0) return true;
        if (count == 0 || errno != EINTR) return false;
    }
}

bool connectTo(const Descriptor& socket, const std::string& path, const Deadline& deadline) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    while (::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        // A frozen listener's queue is full: nothing tells when there is room again.
        constexpr int kRetryMilliseconds = 20;
        if (errno != EAGAIN && errno != EINTR) return false;
        const int left = deadline.left();
        if (left == 0) return false;
        ::poll(nullptr, 0, std::min(left, kRetryMilliseconds));
    }
    return true;
}

bool sendAll(const Descriptor& socket, std::string_view bytes, const Deadline& deadline) {
    while (!bytes.empty()) {
        const auto count = ::send(socket.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count > 0)
            bytes.remove_prefix(static_cast<size_t>(count));
        else if (errno == EAGAIN ? !waitFor(socket, POLLOUT, deadline) : errno != EINTR)
            return false;
    }
    return true;
}

/// Whether the next byte is `expected`; without waiting.
bool takeByte(const Descriptor& socket, char expected) {
    char byte = 0;
    ssize_t count = 0;
    do count = ::recv(socket.number(), &byte, 1, MSG_DONTWAIT);
    while (count < 0 && errno == EINTR);
    return count == 1 && byte == expected;
}

enum class Acknowledgement { missing, inTime, atTheLastMoment };

Acknowledgement sendMessage(const Descriptor& socket, const std::string& path, std::string_view message,
                            const Deadline& deadline) {
    using enum Acknowledgement;
    if (!connectTo(socket, path, deadline) || !peerIsSameUser(socket.number())) return missing;
    if (sendAll(socket, message, deadline) && waitFor(socket, POLLIN, deadline))
        return takeByte(socket, kAcknowledged) ? inTime : missing;
    // From now on the other side can send no acknowledgement, and without having sent one it opens no file:
    // what has come by now decides for both.
    ::shutdown(socket.number(), SHUT_RDWR);
    return takeByte(socket, kAcknowledged) ? atTheLastMoment : missing;
}

}  // namespace

HandOver ActivatePreviousInstance(const WindowEntry& window, std::string_view commandLine,
                                  Milliseconds limit) {
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket) return HandOver::notAcknowledged;
    switch (sendMessage(socket, window.socketPath, encodeMessage(commandLine), Deadline(limit))) {
        case Acknowledgement::missing:
            return HandOver::notAcknowledged;
        case Acknowledgement::atTheLastMoment:
            // The other one opens the files, but its second answer can't come any more.
            return HandOver::delivered;
        case Acknowledgement::inTime:
            break;
    }
    waitFor(socket, POLLIN, Deadline::never());
    return takeByte(socket, kFilesAreOpen) ? HandOver::delivered : HandOver::unanswered;
}

bool peerIsSameUser(int socket) {
    ucred peer{};
    socklen_t length = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == ::geteuid();
}

}  // namespace klt
