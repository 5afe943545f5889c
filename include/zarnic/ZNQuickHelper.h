#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/NSDate.h"

namespace zn {

/// Blocks on the main thread or in the background, after a delay or at once, dates as text, and
/// URLs for other programs. Any thread, except `OpenUrl`. An empty block does nothing.
class ZN_EXPORT ZNQuickHelper final : public NSObject {
    ZN_OBJECT(ZNQuickHelper, NSObject)
public:
    /// Runs the block on the main thread. With a delay (seconds) above 0 it is queued after it,
    /// whoever calls and whatever `isNew` says. Otherwise it is queued at once, or, when the main
    /// thread itself calls and `isNew` is false, it runs inside the call.
    static void GCDPutOneBlockIntoMainThreadIsNew(bool isNew, double delayTime,
                                                  std::function<void()> block);
    /// Runs the block in the background after the delay (seconds; below 0 is none): on the pool
    /// when the main thread calls or `isNew` is true, else on the caller's own thread, which sleeps
    /// for the delay and returns after the block.
    static void GCDPutOneBlockIntoGlobalThreadIsNew(bool isNew, double delayTime,
                                                    std::function<void()> block);

    /// The date by a Unicode date pattern (`yyyy-MM-dd HH:mm`), in the current locale and time
    /// zone; empty for a null date.
    static std::string GetDateFormatterStrByDate(const Ref<NSDate>& date,
                                                 std::string_view dateFomatString);
    /// Seconds since 1970-01-01 00:00 UTC; 0 for a text that does not follow the pattern.
    static double GetTimeSince1970ByDateString(std::string_view dateString,
                                               std::string_view dateFormatter);

    /// Hands the URL to the program that the system has for it; nothing happens for a text that is
    /// no URL. Main thread only.
    static void OpenUrl(std::string_view url);
};

}  // namespace zn
