#include "tests/support/HostileServer.h"

#include <poll.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <map>
#include <utility>

#include "tests/support/Loopback.h"

namespace zn {
namespace {

/// The server's side of one connection. All but the sending ends when the client hangs up or the
/// server shuts the socket.
class Client {
public:
    Client(int socket, const std::string& body) : goodBody(body), socket_(socket) {}

    /// False when nobody listens any more.
    bool send(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (count <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }
    void sendForever(const std::string& bytes) const {
        while (send(bytes)) {
        }
    }
    void stay() const {
        char ignored[256];
        while (recv(socket_, ignored, sizeof ignored, 0) > 0) {
        }
    }
    /// False when the connection ended meanwhile.
    bool pause(int milliseconds) const {
        pollfd end = {.fd = socket_, .events = POLLRDHUP, .revents = 0};
        return poll(&end, 1, milliseconds) == 0;
    }
    /// What the client hears when the socket is closed is not an end but an error.
    void breakOff() const {
        const linger none = {.l_onoff = 1, .l_linger = 0};
        setsockopt(socket_, SOL_SOCKET, SO_LINGER, &none, sizeof none);
    }
    std::string request() const {
        std::string text;
        char piece[4096];
        while (text.find("\r\n\r\n") == text.npos) {
            const ssize_t count = recv(socket_, piece, sizeof piece, 0);
            if (count <= 0)
                return {};
            text.append(piece, static_cast<std::size_t>(count));
        }
        return text;
    }

    const std::string& goodBody;

private:
    int socket_;
};

const std::string page = "<!DOCTYPE html><html><body>Not what you want</body></html>";

std::string head(const std::string& lines, const std::string& status = "200 OK") {
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + lines + "\r\n\r\n";
}

std::string lengthLine(std::size_t length) {
    return "Content-Length: " + std::to_string(length);
}

std::string withLength(const std::string& body, const std::string& status = "200 OK") {
    return head(lengthLine(body.size()), status) + body;
}

std::string redirect(const std::string& place) {
    return head("Content-Length: 0\r\nLocation: " + place, "302 Found");
}

std::string partOfMore() {
    return head(lengthLine(1000)) + "a part";
}

using Deed = void (*)(const Client&);

const std::map<std::string_view, Deed> deeds = {
    {"/good-and-gone",
     [](const Client& client) {
         client.send("HTTP/1.1 200 OK\r\n" + lengthLine(client.goodBody.size()) + "\r\n\r\n" +
                     client.goodBody);
     }},
    {"/page", [](const Client& client) { client.send(withLength(page)); }},
    {"/missing", [](const Client& client) { client.send(withLength(page, "404 Not Found")); }},
    {"/empty", [](const Client& client) { client.send(withLength("")); }},
    {"/until-closed",
     [](const Client& client) { client.send(head("X-Length: none") + client.goodBody); }},
    {"/reset", [](const Client& client) { client.breakOff(); }},
    {"/reset-midway",
     [](const Client& client) {
         client.send(partOfMore());
         client.breakOff();
     }},
    {"/stall", [](const Client& client) { client.stay(); }},
    {"/stall-midway",
     [](const Client& client) {
         client.send(partOfMore());
         client.stay();
     }},
    {"/truncated", [](const Client& client) { client.send(partOfMore()); }},
    {"/chunk-cut-short",
     [](const Client& client) {
         client.send(head("Transfer-Encoding: chunked") + "6\r\na part\r\n100\r\nless");
     }},
    {"/endless",
     [](const Client& client) {
         client.send(head("X-Length: none"));
         client.sendForever(std::string(65536, 'x'));
     }},
    {"/endless-heads",
     [](const Client& client) {
         client.send("HTTP/1.1 200 OK\r\n");
         client.sendForever("X-Head: " + std::string(1000, 'x') + "\r\n");
     }},
    {"/endless-head",
     [](const Client& client) {
         client.send("HTTP/1.1 200 OK\r\nX-Head: ");
         client.sendForever(std::string(65536, 'x'));
     }},
    {"/endless-promises",
     [](const Client& client) { client.sendForever("HTTP/1.1 100 Continue\r\n\r\n"); }},
    {"/redirect-loop", [](const Client& client) { client.send(redirect("/redirect-loop")); }},
    {"/redirect-to-file",
     [](const Client& client) { client.send(redirect("file:///etc/hostname")); }},
    {"/redirect-to-ftp", [](const Client& client) { client.send(redirect("ftp://127.0.0.1/x")); }},
    {"/redirect-to-good", [](const Client& client) { client.send(redirect("/good")); }},
    {"/garbage", [](const Client& client) { client.send("\x7f" + std::string(5000, '\x01')); }},
    {"/wrong-gzip",
     [](const Client& client) {
         client.send(head("Content-Encoding: gzip\r\n" + lengthLine(page.size())) + page);
     }},
};

void drip(const Client& client, int milliseconds) {
    client.send(head(lengthLine(client.goodBody.size())));
    for (const char byte : client.goodBody)
        if (!client.pause(milliseconds) || !client.send({&byte, 1}))
            return;
}

/// The number at the end of a path.
std::size_t numberOf(std::string_view path) {
    const std::string_view digits = path.substr(path.rfind('/') + 1);
    std::size_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

HostileServer::HostileServer(std::string goodBody)
    : goodBody_(std::move(goodBody)), listener_(boundSocket()) {
    listen(listener_.number(), SOMAXCONN);
    acceptor_ = std::thread([this] { accept(); });
}

HostileServer::~HostileServer() {
    shutdown(listener_.number(), SHUT_RDWR);
    acceptor_.join();
    {
        const std::lock_guard guard(mutex_);
        for (const Connection& connection : connections_)
            if (connection.socket.valid())
                shutdown(connection.socket.number(), SHUT_RDWR);
    }
    for (Connection& connection : connections_)
        connection.thread.join();
}

std::string HostileServer::url(const std::string& path) const {
    return loopbackURL("http", portOf(listener_), path);
}

void HostileServer::accept() {
    while (true) {
        FileDescriptor socket(accept4(listener_.number(), nullptr, nullptr, SOCK_CLOEXEC));
        if (socket.valid())
            begin(std::move(socket));
        else if (errno == EMFILE || errno == ENFILE)
            // A test takes the descriptors away for a while.
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        else if (errno != ECONNABORTED && errno != EINTR)
            return;
    }
}

void HostileServer::begin(FileDescriptor socket) {
    joinFinished();
    const std::lock_guard guard(mutex_);
    Connection& connection = connections_.emplace_back();
    connection.socket = std::move(socket);
    connection.thread = std::thread([this, &connection, number = connection.socket.number()] {
        serve(number);
        const std::lock_guard end(mutex_);
        connection.socket.close();
        connection.finished = true;
    });
}

void HostileServer::joinFinished() {
    std::list<Connection> finished;
    {
        const std::lock_guard guard(mutex_);
        for (auto each = connections_.begin(); each != connections_.end();) {
            const auto next = std::next(each);
            if (each->finished)
                finished.splice(finished.end(), connections_, each);
            each = next;
        }
    }
    for (Connection& connection : finished)
        connection.thread.join();
}

void HostileServer::serve(int socket) {
    ++requestCount_;
    const std::string request = Client(socket, goodBody_).request();
    const std::size_t begin = request.find(' ') + 1;
    if (begin > 0)
        answer(socket, request.substr(begin, request.find(' ', begin) - begin));
}

void HostileServer::answer(int socket, const std::string& path) const {
    const Client client(socket, goodBody_);
    if (const auto found = deeds.find(path); found != deeds.end())
        found->second(client);
    else if (path.starts_with("/good"))
        client.send(withLength(goodBody_));
    else if (path.starts_with("/drip/"))
        drip(client, static_cast<int>(numberOf(path)));
    else if (path.starts_with("/announces/"))
        client.send(head(lengthLine(numberOf(path))));
}

}  // namespace zn
