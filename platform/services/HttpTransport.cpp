#include "zarnic/platform/services/HttpTransport.h"

namespace zn {
namespace {

constexpr double usualTimeout = 60;

}  // namespace

std::uint64_t HttpTransport::largestBody() const {
    return largestBody_.load(std::memory_order_relaxed);
}

void HttpTransport::setLargestBody(std::uint64_t bytes) {
    largestBody_.store(bytes, std::memory_order_relaxed);
}

double HttpTransport::idleSeconds(const HttpRequest& request) {
    return request.idleTimeout > 0 ? request.idleTimeout : usualTimeout;
}

}  // namespace zn
