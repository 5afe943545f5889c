#pragma once

#include <cstdint>
#include <string>

#include "platform/services/linux/HttpHandle.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

struct HttpOptions {
    const std::string& url;
    const std::string& userAgent;
    const std::string& certificates;
    double idleSeconds = 0;
    std::uint64_t largestBody = 0;
};

/// One request on a thread's handle.
class HttpTransfer {
public:
    HttpTransfer(HttpHandle& handle, const HttpOptions& options);
    ~HttpTransfer();
    HttpTransfer(const HttpTransfer&) = delete;
    HttpTransfer& operator=(const HttpTransfer&) = delete;

    /// The body; absent on failure. Once.
    Value run();

private:
    void setOptions();
    void setCallbacks();
    bool perform();
    CURLcode result() const;
    bool wait();

    void noteProgress();
    std::size_t receiveHead(std::size_t size);
    std::size_t receiveBody(const char* bytes, std::size_t size);
    void makeRoom();

    HttpHandle& handle_;
    const Curl& curl_;
    const HttpOptions& options_;
    std::string& body_;
    std::size_t headSize_ = 0;
    // No other clock moves what is outside the process.
    const SystemClock clock_;
    const Clock::Ticks patience_;
    Clock::Ticks deadline_;
};

}  // namespace zn
