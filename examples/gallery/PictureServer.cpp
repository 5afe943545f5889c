#include "PictureServer.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <zarnic/UIColor+ZNCategory.h>
#include <zarnic/platform/drawing/UIImage.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace zn;

namespace gallery {
namespace {

constexpr std::uint16_t usualPort = 46110;
constexpr double side = 400;
constexpr double quality = 0.85;
constexpr auto thinkingTime = std::chrono::milliseconds(250);
constexpr std::size_t longestRequest = 8192;

/// The sky above and below, the far hill and the near one.
struct Hour {
    const char* above;
    const char* below;
    const char* far;
    const char* near;
};

constexpr std::array<Hour, 6> hours{{{"#2F6FDE", "#BFE3FF", "#5B8E7D", "#2E5E4E"},
                                     {"#F2709C", "#FFD9A0", "#8E5572", "#553C5E"},
                                     {"#102A5C", "#5A6FB5", "#26386B", "#141F42"},
                                     {"#F09819", "#FFE8A8", "#B5651D", "#7A3E12"},
                                     {"#2BA6A4", "#D3F5E4", "#3B7F8C", "#1F4E5F"},
                                     {"#7C5CE7", "#F8C9D4", "#6A5ACD", "#3D2F8F"}}};

CGColor colorOf(const char* text) {
    return ZN_ColorWithHexString(text)->cgColor();
}

void drawHill(CGContext& context, const char* color, double left, double top) {
    context.setFillColor(colorOf(color));
    context.moveTo({left - side / 2, side});
    context.addCurveTo({left + side * 1.5, side}, {left + side * 0.3, top},
                       {left + side * 0.7, top});
    context.closePath();
    context.drawPath(CGPathDrawingMode::Fill);
}

/// A landscape at an hour of its own.
std::vector<std::byte> picture(int number) {
    const Hour& hour = hours[static_cast<std::size_t>(number) % hours.size()];
    const double shift = static_cast<double>(number * 67 % 160);
    UIGraphicsBeginImageContextWithOptions({side, side}, true, 1);
    const auto context = UIGraphicsGetCurrentContext();
    context->drawLinearGradient({{colorOf(hour.above), colorOf(hour.below)}, {0, 1}}, {0, 0},
                                {0, side}, CGGradientDrawingOptions::None);
    context->setFillColor({1, 0.97, 0.86, 1});
    context->fillEllipse({60 + shift, 70 + shift / 3, 90, 90});
    drawHill(*context, hour.far, shift - 200, 170);
    drawHill(*context, hour.near, 160 - shift / 2, 230);
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return UIImageJPEGRepresentation(image, quality).value_or(std::vector<std::byte>());
}

bool sendAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

bool sendResponse(int socket, std::string_view status, std::string_view body) {
    return sendAll(socket, "HTTP/1.1 " + std::string(status) +
                               "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n") &&
           sendAll(socket, body);
}

/// Between the first two blanks of a request.
std::string_view pathOf(std::string_view request) {
    const auto start = request.find('/');
    return start == request.npos ? std::string_view()
                                 : request.substr(start + 1, request.find(' ', start) - start - 1);
}

}  // namespace

struct PictureServer::Connection {
    int socket;
    std::thread thread;
};

PictureServer::PictureServer() {
    // Mostly the same port, so that the pictures of the last time are found in the files.
    for (const std::uint16_t port : {usualPort, std::uint16_t{0}}) {
        if (!listenOn(port))
            continue;
        acceptor_ = std::thread([this] { acceptAll(); });
        return;
    }
}

bool PictureServer::listenOn(std::uint16_t port) {
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    ::setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const name = reinterpret_cast<sockaddr*>(&address);
    const bool listening = ::bind(listener_, name, length) == 0 &&
                           ::listen(listener_, SOMAXCONN) == 0 &&
                           ::getsockname(listener_, name, &length) == 0;
    if (listening)
        port_ = ntohs(address.sin_port);
    else
        ::close(listener_);
    return listening;
}

PictureServer::~PictureServer() {
    {
        const std::lock_guard guard(mutex_);
        ending_ = true;
        for (const Connection& each : connections_)
            ::shutdown(each.socket, SHUT_RDWR);
    }
    if (!acceptor_.joinable())
        return;
    ::shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    for (Connection& each : connections_) {
        each.thread.join();
        ::close(each.socket);
    }
    ::close(listener_);
}

std::string PictureServer::url(std::string_view name) const {
    return port_ == 0 ? std::string()
                      : "http://127.0.0.1:" + std::to_string(port_) + "/" + std::string(name);
}

void PictureServer::acceptAll() {
    for (;;) {
        const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        const std::lock_guard guard(mutex_);
        if (socket < 0 || ending_) {
            if (socket >= 0)
                ::close(socket);
            return;
        }
        Connection& connection = connections_.emplace_back(Connection{socket, {}});
        connection.thread = std::thread([this, &connection] { serve(connection); });
    }
}

void PictureServer::serve(Connection& connection) {
    std::string request;
    char piece[1024];
    for (;;) {
        const ssize_t count = ::recv(connection.socket, piece, sizeof piece, 0);
        if (count <= 0 || request.size() > longestRequest)
            return;
        request.append(piece, static_cast<std::size_t>(count));
        if (!request.ends_with("\r\n\r\n"))
            continue;
        if (!answer(connection.socket, request)) {
            ::shutdown(connection.socket, SHUT_RDWR);
            return;
        }
        request.clear();
    }
}

bool PictureServer::answer(int socket, std::string_view request) {
    std::this_thread::sleep_for(thinkingTime);
    ++served_;
    const std::string_view path = pathOf(request);
    if (path == "broken")
        return false;
    if (!path.ends_with(".jpg"))
        return sendResponse(socket, "404 Not Found", "<h1>No such picture</h1>");
    const auto bytes = picture(std::atoi(std::string(path).c_str()));
    return sendResponse(socket, "200 OK",
                        {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}  // namespace gallery
