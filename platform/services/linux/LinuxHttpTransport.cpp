#include "platform/services/linux/LinuxHttpTransport.h"

#include <strings.h>

#include <algorithm>
#include <new>

#include "platform/services/linux/HttpHandle.h"
#include "platform/services/linux/HttpTransfer.h"

namespace zn {
namespace {

/// Libcurl would take much for a URL that is none.
bool isWebURL(const std::string& url) {
    const auto beginsWith = [&](std::string_view prefix) {
        return strncasecmp(url.c_str(), prefix.data(), prefix.size()) == 0;
    };
    return (beginsWith("http://") || beginsWith("https://")) && url.find('\0') == url.npos;
}

bool isOutsideHeads(char character) {
    return character < 0x20 || character == 0x7F;
}

}  // namespace

LinuxHttpTransport::LinuxHttpTransport() : LinuxHttpTransport(Settings()) {}

LinuxHttpTransport::LinuxHttpTransport(Settings settings) : settings_(std::move(settings)) {
    std::erase_if(settings_.userAgent, isOutsideHeads);
}

Value LinuxHttpTransport::get(const HttpRequest& request) {
    HttpHandle* handle = isWebURL(request.url) ? HttpHandle::ofThisThread() : nullptr;
    if (handle == nullptr)
        return {};
    const HttpOptions options = {.url = request.url,
                                 .userAgent = settings_.userAgent,
                                 .certificates = settings_.certificates,
                                 .idleSeconds = idleSeconds(request),
                                 .largestBody = largestBody()};
    try {
        return HttpTransfer(*handle, options).run();
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace zn
