#pragma once

#include <string>

#include "zarnic/platform/services/HttpTransport.h"

namespace zn {

/// HTTP and HTTPS through libcurl. Each calling thread has a handle of its own for as long as it
/// lives, with the connections that wait for its next request. Proxies are those of the environment
/// (`http_proxy`, `https_proxy`, `no_proxy`); neither cookies nor stored passwords are sent. What
/// comes through is 20 redirects and 1 MiB of heads at most. Looking up a name may take as long as
/// the system's resolver is set to try.
class ZN_EXPORT LinuxHttpTransport final : public HttpTransport {
public:
    struct Settings {
        /// What the servers hear who asks; characters that may not stand there are left out.
        std::string userAgent = {};
        /// A file of certificates (PEM) to trust instead of the system's; empty for those.
        std::string certificates = {};
    };

    LinuxHttpTransport();
    explicit LinuxHttpTransport(Settings settings);

    Value get(const HttpRequest& request) override;

private:
    Settings settings_;
};

}  // namespace zn
