#include "zarnic/platform/services/NSURLRequest.h"

namespace zn {

NSURLRequest::NSURLRequest(Ref<NSURL> url, NSURLRequestCachePolicy cachePolicy,
                           double timeoutInterval)
    : url_(std::move(url)), cachePolicy_(cachePolicy), timeoutInterval_(timeoutInterval) {}

std::string NSURLRequest::HTTPMethod() const {
    return "GET";
}

}  // namespace zn
