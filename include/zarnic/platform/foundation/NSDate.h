#pragma once

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// A moment: seconds since 1970-01-01 00:00 UTC, immutable.
class ZN_EXPORT NSDate final : public NSObject {
    ZN_OBJECT(NSDate, NSObject)
public:
    explicit NSDate(double since1970);

    /// Now, by the process's clock.
    static Ref<NSDate> date();
    static Ref<NSDate> dateWithTimeIntervalSince1970(double seconds);
    static Ref<NSDate> dateWithTimeIntervalSinceNow(double seconds);
    /// 4001-01-01 00:00 UTC.
    static Ref<NSDate> distantFuture();
    static Ref<NSDate> distantPast();

    double timeIntervalSince1970() const { return since1970_; }
    double timeIntervalSinceNow() const;

    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override;
    /// `2017-01-01 00:00:00 +0000`, always UTC.
    std::string description() const override;

private:
    double since1970_;
};

}  // namespace zn
