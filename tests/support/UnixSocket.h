#pragma once

#include <sys/socket.h>
#include <sys/un.h>

#include <string>
#include <string_view>

#include "platform/Descriptor.h"

namespace klt {

/// A socket with which `calls` come right for this path; none where one fails.
template <typename... Call>
Descriptor socketAtPath(const std::string& path, int flags, Call... calls) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
    const auto* const any = reinterpret_cast<const sockaddr*>(&address);
    return ((calls(socket.number(), any, sizeof address) == 0) && ...) ? std::move(socket) : Descriptor();
}

inline Descriptor listenAtPath(const std::string& path, int queue = 16) {
    return socketAtPath(path, 0, ::bind, [&](int number, auto...) { return ::listen(number, queue); });
}

inline Descriptor connectToPath(const std::string& path, int flags = 0) {
    return socketAtPath(path, flags, ::connect);
}

/// Whether all of it could be sent.
inline bool sendBytes(const Descriptor& socket, std::string_view bytes) {
    return ::send(socket.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(bytes.size());
}

/// What comes up to the connection's end, at most `limit` bytes.
inline std::string receiveBytes(const Descriptor& socket, size_t limit = std::string::npos) {
    std::string bytes;
    for (char byte = 0; bytes.size() < limit && ::recv(socket.number(), &byte, 1, 0) == 1;) bytes += byte;
    return bytes;
}

}  // namespace klt
