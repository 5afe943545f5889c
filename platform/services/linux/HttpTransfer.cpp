#include "platform/services/linux/HttpTransfer.h"

#include <sys/socket.h>

#include <algorithm>
#include <limits>
#include <new>
#include <span>

namespace zn {
namespace {

constexpr long mostRedirects = 20;
constexpr long receivedAtOnce = 64 << 10;
constexpr std::size_t largestHeads = 1 << 20;
/// What a thread may keep for its next body, and take on a server's word for this one.
constexpr std::size_t roomToKeep = 1 << 20;
constexpr std::uint64_t roomToTrust = 16 << 20;
constexpr std::uint64_t largestAnnounced = std::numeric_limits<curl_off_t>::max();

/// The descriptor is not for the programs that this one starts.
curl_socket_t openSocket(void*, curlsocktype, curl_sockaddr* address) {
    return socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

/// In the milliseconds that libcurl counts in; never 0, which would be its default.
long milliseconds(Clock::Ticks span) {
    const auto whole = std::chrono::ceil<std::chrono::milliseconds>(span).count();
    return std::clamp<long>(whole, 1, std::numeric_limits<int>::max());
}

}  // namespace

HttpTransfer::HttpTransfer(HttpHandle& handle, const HttpOptions& options)
    : handle_(handle),
      curl_(handle.library()),
      options_(options),
      body_(handle.room()),
      patience_(ticksFromSeconds(options.idleSeconds)) {
    body_.clear();
}

HttpTransfer::~HttpTransfer() {
    if (body_.capacity() > roomToKeep)
        std::string().swap(body_);
}

Value HttpTransfer::run() {
    curl_.easyReset(handle_.easy());
    setOptions();
    setCallbacks();
    return perform() ? Value::data(std::as_bytes(std::span(body_))) : Value();
}

void HttpTransfer::setOptions() {
    CURL* easy = handle_.easy();
    const auto setopt = curl_.easySetopt;
    setopt(easy, CURLOPT_URL, options_.url.c_str());
    setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
    setopt(easy, CURLOPT_MAXREDIRS, mostRedirects);
    setopt(easy, CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
    setopt(easy, CURLOPT_NOSIGNAL, 1L);
    setopt(easy, CURLOPT_BUFFERSIZE, receivedAtOnce);
    setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, milliseconds(patience_));
    // What a server says before the body comes; what comes is counted besides.
    setopt(easy, CURLOPT_MAXFILESIZE_LARGE,
           static_cast<curl_off_t>(std::min(options_.largestBody, largestAnnounced)));
    if (!options_.userAgent.empty())
        setopt(easy, CURLOPT_USERAGENT, options_.userAgent.c_str());
    if (!options_.certificates.empty())
        setopt(easy, CURLOPT_CAINFO, options_.certificates.c_str());
}

/// Nothing may be thrown through libcurl: where something could be, an error comes back.
void HttpTransfer::setCallbacks() {
    CURL* easy = handle_.easy();
    const auto setopt = curl_.easySetopt;
    using Callback = std::size_t (*)(char*, std::size_t, std::size_t, HttpTransfer*);
    const Callback head = [](char*, std::size_t size, std::size_t count, HttpTransfer* transfer) {
        return transfer->receiveHead(size * count);
    };
    const Callback body = [](char* bytes, std::size_t size, std::size_t count,
                             HttpTransfer* transfer) {
        return transfer->receiveBody(bytes, size * count);
    };
    const auto connected = [](void* transfer, char*, char*, int, int) {
        static_cast<HttpTransfer*>(transfer)->noteProgress();
        return CURL_PREREQFUNC_OK;
    };
    setopt(easy, CURLOPT_HEADERFUNCTION, head);
    setopt(easy, CURLOPT_HEADERDATA, this);
    setopt(easy, CURLOPT_WRITEFUNCTION, body);
    setopt(easy, CURLOPT_WRITEDATA, this);
    setopt(easy, CURLOPT_PREREQFUNCTION, static_cast<curl_prereq_callback>(connected));
    setopt(easy, CURLOPT_PREREQDATA, this);
    setopt(easy, CURLOPT_OPENSOCKETFUNCTION, openSocket);
}

/// Libcurl's own time-outs count in whole seconds and look once a second; this one is exact.
bool HttpTransfer::perform() {
    CURLM* multi = handle_.multi();
    if (curl_.multiAddHandle(multi, handle_.easy()) != CURLM_OK)
        return false;
    noteProgress();
    int running = 1;
    while (curl_.multiPerform(multi, &running) == CURLM_OK && running > 0 && wait()) {
    }
    const CURLcode outcome = result();
    curl_.multiRemoveHandle(multi, handle_.easy());
    return outcome == CURLE_OK;
}

bool HttpTransfer::wait() {
    const auto left = deadline_ - clock_.ticks();
    return left > Clock::Ticks::zero() &&
           curl_.multiPoll(handle_.multi(), nullptr, 0, static_cast<int>(milliseconds(left)),
                           nullptr) == CURLM_OK;
}

CURLcode HttpTransfer::result() const {
    int left = 0;
    const CURLMsg* message = curl_.multiInfoRead(handle_.multi(), &left);
    return message != nullptr && message->msg == CURLMSG_DONE ? message->data.result
                                                              : CURLE_OPERATION_TIMEDOUT;
}

void HttpTransfer::noteProgress() {
    deadline_ = clock_.ticks() + patience_;
}

std::size_t HttpTransfer::receiveHead(std::size_t size) {
    noteProgress();
    headSize_ += size;
    return headSize_ > largestHeads ? 0 : size;
}

std::size_t HttpTransfer::receiveBody(const char* bytes, std::size_t size) {
    noteProgress();
    if (size > options_.largestBody - body_.size())
        return 0;
    try {
        if (body_.empty())
            makeRoom();
        body_.append(bytes, size);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return size;
}

void HttpTransfer::makeRoom() {
    curl_off_t announced = 0;
    curl_.easyGetinfo(handle_.easy(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &announced);
    const auto length = static_cast<std::uint64_t>(std::max<curl_off_t>(announced, 0));
    body_.reserve(std::min({length, options_.largestBody, roomToTrust}));
}

}  // namespace zn
