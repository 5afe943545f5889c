#pragma once

#include <atomic>
#include <cstdlib>
#include <functional>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/services/NSURLConnection.h"

namespace zn {

/// Files in a folder of the test's own; make it before anything asks for one.
class OwnHome {
public:
    OwnHome() { setenv("ZARNIC_HOME", folder_.path().c_str(), 1); }
    std::string path(std::string_view name) const { return folder_.path(name); }
    void write(std::string_view name, std::string_view contents) const {
        folder_.write(name, contents);
    }

private:
    const TemporaryFolder folder_;
};

/// Runs the main loop until that holds; false when it does not within a time that stands for ever.
inline bool runUntil(const std::function<bool()>& holds, double patience = 60) {
    const double end = Clock::shared().monotonic() + patience;
    while (!holds()) {
        if (Clock::shared().monotonic() > end)
            return false;
        NSRunLoop::mainRunLoop()->runPass(0.01);
    }
    return true;
}

/// Gives up sooner than users would want.
class HastyHelper final : public ZNImageHelper {
public:
    Value downloadImageData(std::optional<std::string_view> url) const override {
        held_.wait(true);
        ++fetches;
        const auto encoded = urlEncodeToCN(url);
        return NSURLConnection::sendSynchronousRequest(
            make<NSURLRequest>(NSURL::URLWithString(encoded.value_or(std::string())),
                               NSURLRequestCachePolicy::UseProtocolCachePolicy, patience));
    }
    /// Nothing is queued and nothing is being fetched.
    bool idle() const {
        const ObjectLock lock(bufDownloading());
        return bufDownloading()->empty();
    }

    /// Keeps what would be fetched until `release`.
    void hold() { held_ = true; }
    void release() {
        held_ = false;
        held_.notify_all();
    }

    /// Seconds without progress that it waits.
    double patience = 0.7;
    mutable std::atomic<int> fetches = 0;

private:
    std::atomic<bool> held_ = false;
};

}  // namespace zn
