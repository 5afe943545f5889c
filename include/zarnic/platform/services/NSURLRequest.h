#pragma once

#include <cstdint>
#include <string>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSURL.h"

namespace zn {

/// Whether an answer may come out of a cache. None is kept here, so all load alike, but for
/// `ReturnCacheDataDontLoad`, which has nothing to give. The platform's numbers.
enum class NSURLRequestCachePolicy : std::uint8_t {
    UseProtocolCachePolicy = 0,
    ReloadIgnoringLocalCacheData = 1,
    ReloadIgnoringCacheData = ReloadIgnoringLocalCacheData,
    ReturnCacheDataElseLoad = 2,
    ReturnCacheDataDontLoad = 3,
    ReloadIgnoringLocalAndRemoteCacheData = 4,
    ReloadRevalidatingCacheData = 5,
};

/// What to load and how, immutable; any thread.
class ZN_EXPORT NSURLRequest final : public NSObject {
    ZN_OBJECT(NSURLRequest, NSObject)
public:
    /// The time-out is in seconds without progress. A null URL makes a request that always fails.
    explicit NSURLRequest(
        Ref<NSURL> url,
        NSURLRequestCachePolicy cachePolicy = NSURLRequestCachePolicy::UseProtocolCachePolicy,
        double timeoutInterval = 60);

    const Ref<NSURL>& URL() const { return url_; }
    NSURLRequestCachePolicy cachePolicy() const { return cachePolicy_; }
    double timeoutInterval() const { return timeoutInterval_; }
    /// `GET`.
    std::string HTTPMethod() const;

private:
    Ref<NSURL> url_;
    NSURLRequestCachePolicy cachePolicy_;
    double timeoutInterval_;
};

}  // namespace zn
