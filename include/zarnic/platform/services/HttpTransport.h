#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "zarnic/platform/foundation/NSObject.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// What is asked of a web server.
struct HttpRequest {
    /// With its scheme, and escaped as URLs are.
    std::string url;
    /// The seconds without progress after which the request is given up, also those that connecting
    /// may take. The time of a whole transfer has no limit. What is not above 0 counts as 60.
    double idleTimeout = 60;
};

/// Gets what web servers hold: the seam behind `NSURLConnection`. Safe from any thread, and as many
/// threads as want to may be in it at once.
class ZN_EXPORT HttpTransport : public NSObject {
public:
    /// This machine's: HTTP and HTTPS, with each thread's connections kept for its next request.
    static Ref<HttpTransport> systemImplementation();

    /// Blocks until the body is there, and gives it as data whatever the status; data of no bytes
    /// for a body of none. Redirects are followed, compressed bodies expanded. Absent on failure: a
    /// URL that is none or not one of `http` or `https`, a server that is not found, does not
    /// answer in time, breaks off or cannot be trusted, a body above the cap, a redirect to another
    /// scheme, too many redirects.
    virtual Value get(const HttpRequest& request) = 0;

    /// The bytes that an expanded body may have at most; 256 MiB unless set. A change is for the
    /// requests that begin after it.
    std::uint64_t largestBody() const;
    void setLargestBody(std::uint64_t bytes);

protected:
    /// The request's time-out as it counts.
    static double idleSeconds(const HttpRequest& request);

private:
    std::atomic<std::uint64_t> largestBody_ = std::uint64_t{256} << 20;
};

}  // namespace zn
