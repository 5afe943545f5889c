#include "zarnic/platform/services/NSURLConnection.h"

#include "zarnic/platform/foundation/NSString.h"
#include "zarnic/platform/services/HttpTransport.h"
#include "zarnic/platform/services/Services.h"

namespace zn {
namespace {

bool isWebURL(const NSURL& url) {
    const std::string scheme = lowercaseString(url.scheme().value_or(""));
    return scheme == "http" || scheme == "https";
}

bool mayLoad(const NSURLRequest& request) {
    return request.cachePolicy() != NSURLRequestCachePolicy::ReturnCacheDataDontLoad &&
           request.URL() && isWebURL(*request.URL());
}

std::string withoutFragment(const std::string& url) {
    return url.substr(0, url.find('#'));
}

}  // namespace

Value NSURLConnection::sendSynchronousRequest(const Ref<NSURLRequest>& request) {
    if (!request || !mayLoad(*request))
        return {};
    return Services::get<HttpTransport>()->get(
        {withoutFragment(request->URL()->absoluteString()), request->timeoutInterval()});
}

}  // namespace zn
