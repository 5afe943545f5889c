#pragma once

#include <memory>
#include <string>

#include "platform/services/linux/Curl.h"

namespace zn {

/// What a thread keeps between its requests: libcurl's handles, in which connections wait for the
/// next one, and room for a body.
class HttpHandle {
public:
    /// The calling thread's; made on first use, destroyed with the thread. Null when the system has
    /// nothing left to make it of.
    static HttpHandle* ofThisThread();

    const Curl& library() const { return library_; }
    CURL* easy() const { return easy_.get(); }
    CURLM* multi() const { return multi_.get(); }
    std::string& room() { return room_; }

private:
    explicit HttpHandle(const Curl& library);

    const Curl& library_;
    const std::unique_ptr<CURLM, decltype(Curl::multiCleanup)> multi_;
    const std::unique_ptr<CURL, decltype(Curl::easyCleanup)> easy_;
    std::string room_;
};

}  // namespace zn
