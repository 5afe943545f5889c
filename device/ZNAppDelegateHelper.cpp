#include "zarnic/ZNAppDelegateHelper.h"

#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/services/DisplayStatus.h"
#include "zarnic/platform/services/Services.h"

namespace zn {

const char* const ZN_ScreenLockStatusChangedNotification = "ZN_ScreenLockStatusChangedNotification";

namespace {

/// The state is read for each notice, and not kept.
void postScreenLockStatus() {
    const std::uint64_t state = Services::get<DisplayStatus>()->state();
    NSNotificationCenter::defaultCenter()->postNotificationName(
        ZN_ScreenLockStatusChangedNotification, NSNumber::numberWithUnsignedLongLong(state));
}

}  // namespace

void ZNAppDelegateHelper::ConfigBlock(const std::function<void()>& block) {
    Services::get<DisplayStatus>()->observe(postScreenLockStatus).detach();
    if (block)
        block();
}

}  // namespace zn
