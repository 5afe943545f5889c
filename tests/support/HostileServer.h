#pragma once

#include <atomic>
#include <cstdint>
#include <list>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "platform/foundation/files/FileDescriptor.h"

namespace zn {

/// A server on loopback that does by the path what no server should. Each connection serves one
/// request, on a thread of its own; all end with the server.
///
/// - `/good...`: the body that it was made with; `/good-and-gone`: the same, promising to stay
/// - `/page`, `/missing`: a page of HTML, with status 200 and 404; `/empty`: no byte
/// - `/until-closed`: the good body without its length
/// - `/reset`, `/reset-midway`: breaks the connection
/// - `/stall`, `/stall-midway`: says no more, but stays
/// - `/truncated`, `/chunk-cut-short`: less than it announced
/// - `/drip/N`: the good body, a byte every N milliseconds
/// - `/endless`, `/endless-heads`, `/endless-head`, `/endless-promises`: a body, heads, one head,
/// the
///   promise of an answer without end
/// - `/announces/N`: N bytes are announced, none follows
/// - `/redirect-loop`, `/redirect-to-file`, `/redirect-to-ftp`, `/redirect-to-good`
/// - `/garbage`, `/wrong-gzip`: not HTTP, not gzip
class HostileServer {
public:
    explicit HostileServer(std::string goodBody);
    ~HostileServer();
    HostileServer(const HostileServer&) = delete;
    HostileServer& operator=(const HostileServer&) = delete;

    std::string url(const std::string& path) const;
    const std::string& goodBody() const { return goodBody_; }
    /// The requests that have begun.
    int requestCount() const { return requestCount_; }

private:
    struct Connection {
        FileDescriptor socket;
        std::thread thread;
        bool finished = false;
    };
    void accept();
    void begin(FileDescriptor socket);
    void joinFinished();
    void serve(int socket);
    void answer(int socket, const std::string& path) const;

    const std::string goodBody_;
    FileDescriptor listener_;
    std::atomic<int> requestCount_ = 0;
    std::mutex mutex_;
    std::list<Connection> connections_;
    std::thread acceptor_;
};

}  // namespace zn
