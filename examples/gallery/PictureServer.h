#pragma once

#include <atomic>
#include <cstdint>
#include <list>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace gallery {

/// A small web server on this machine alone, for the pictures that the gallery draws: `/0.jpg`,
/// `/1.jpg` and so on. It takes its time for each. What it does not know it answers with a page in
/// HTML, and for `/broken` it hangs up. It ends with the object.
class PictureServer {
public:
    PictureServer();
    ~PictureServer();
    PictureServer(const PictureServer&) = delete;
    PictureServer& operator=(const PictureServer&) = delete;

    /// The URL of a name; empty when the machine gave no port.
    std::string url(std::string_view name) const;
    /// How many requests were answered.
    int served() const { return served_; }

private:
    struct Connection;
    bool listenOn(std::uint16_t port);
    void acceptAll();
    void serve(Connection& connection);
    bool answer(int socket, std::string_view request);

    int listener_ = -1;
    int port_ = 0;
    std::atomic<int> served_ = 0;
    std::mutex mutex_;
    bool ending_ = false;
    std::list<Connection> connections_;
    std::thread acceptor_;
};

}  // namespace gallery
