#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSDate.h"

namespace zn {

/// Turns dates into text and back by a Unicode date pattern (`yyyy-MM-dd HH:mm:ss`, UTS 35), in the
/// current locale and time zone unless others are set. Safe from any thread.
class ZN_EXPORT NSDateFormatter final : public NSObject {
    ZN_OBJECT(NSDateFormatter, NSObject)
public:
    NSDateFormatter();
    ~NSDateFormatter() override;

    /// Empty by default; with it every text is empty and none can be read.
    std::string dateFormat() const;
    void setDateFormat(std::string_view pattern);
    /// `en_US_POSIX`, `zh-Hans-CN`; empty for the current locale.
    void setLocaleIdentifier(std::string_view identifier);
    /// `Europe/Berlin`, `GMT+08:00`; an empty or unknown name stands for the local time zone.
    void setTimeZoneName(std::string_view name);

    /// Null unless the whole text, but for white space after it, follows the pattern and names a
    /// moment that exists (no 30 February). What the pattern leaves out is that of 2000-01-01
    /// 00:00; years of two digits (`yy`) lie in 1950 to 2049.
    Ref<NSDate> dateFromString(std::string_view text) const;
    /// Empty for a null date.
    std::string stringFromDate(const Ref<NSDate>& date) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
