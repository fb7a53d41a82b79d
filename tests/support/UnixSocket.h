#pragma once

#include <sys/socket.h>
#include <sys/un.h>

#include <string>
#include <string_view>

#include "platform/Descriptor.h"

namespace klt {

inline sockaddr_un socketAddress(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

inline Descriptor listenAtPath(const std::string& path, int queue = 16) {
    const auto address = socketAddress(path);
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const bool listens =
        ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        ::listen(socket.number(), queue) == 0;
    return listens ? std::move(socket) : Descriptor();
}

inline Descriptor connectToPath(const std::string& path, int flags = 0) {
    const auto address = socketAddress(path);
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
    const bool connected =
        ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    return connected ? std::move(socket) : Descriptor();
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
