#pragma once

#include <functional>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSNumber.h"

namespace zn {

/// Posted on the default notification center, on the main thread, when the screen is locked or
/// unlocked. The object is an `NSNumber` of unsigned 64 bits, the display's state read at that
/// moment: 0 while locked. The name equals the constant's.
ZN_EXPORT extern const char* const ZN_ScreenLockStatusChangedNotification;

/// What an application sets up when it launches.
class ZN_EXPORT ZNAppDelegateHelper : public NSObject {
    ZN_OBJECT(ZNAppDelegateHelper, NSObject)
public:
    /// Begins to post the notice of the screen lock, for the life of the process, then calls the
    /// block if there is one. Each further call has every change posted once more. Main thread
    /// only.
    static void ConfigBlock(const std::function<void()>& block);
};

}  // namespace zn
