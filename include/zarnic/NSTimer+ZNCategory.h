#pragma once

#include "zarnic/platform/foundation/NSTimer.h"

namespace zn {

/// Each does nothing for an absent timer and for one that is no longer valid.

/// Moves the next fire to the distant future.
ZN_EXPORT void zn_Pause(const Ref<NSTimer>& timer);
/// Fires as soon as the loop runs, then on the grid that begins there.
ZN_EXPORT void zn_Resume(const Ref<NSTimer>& timer);
/// The same in so many seconds.
ZN_EXPORT void zn_ResumeAfterTimeInterval(const Ref<NSTimer>& timer, double seconds);
/// Invalidates it for good.
ZN_EXPORT void zn_Stop(const Ref<NSTimer>& timer);

}  // namespace zn
