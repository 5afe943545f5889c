#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstdint>
#include <stdexcept>
#include <string>

#include "platform/foundation/files/FileDescriptor.h"

namespace zn {

/// Sockets on this machine alone.
inline sockaddr_in loopbackAddress(std::uint16_t port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// Bound to a port that was free.
inline FileDescriptor boundSocket() {
    FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopbackAddress(0);
    if (bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("no port is free");
    return socket;
}

inline std::uint16_t portOf(const FileDescriptor& socket) {
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    getsockname(socket.number(), reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

inline bool isListening(std::uint16_t port) {
    const FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopbackAddress(port);
    return connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
           0;
}

inline std::string loopbackURL(const char* scheme, std::uint16_t port, const std::string& path) {
    return std::string(scheme) + "://127.0.0.1:" + std::to_string(port) + path;
}

}  // namespace zn
