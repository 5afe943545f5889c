#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>

namespace zn {

/// What a thread keeps between its requests: libcurl's handles, in which connections wait for the
/// next one, and room for a body.
class HttpHandle {
public:
    /// The calling thread's; made on first use, destroyed with the thread. Null when the system has
    /// nothing left to make it of.
    static HttpHandle* ofThisThread();

    CURL* easy() const { return easy_.get(); }
    CURLM* multi() const { return multi_.get(); }
    std::string& room() { return room_; }

private:
    struct Cleanup {
        void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    };
    struct MultiCleanup {
        void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
    };
    HttpHandle();

    const std::unique_ptr<CURLM, MultiCleanup> multi_;
    const std::unique_ptr<CURL, Cleanup> easy_;
    std::string room_;
};

}  // namespace zn
