#include "zarnic/NSTimer+ZNCategory.h"

#include "zarnic/platform/foundation/NSDate.h"

namespace zn {
namespace {

bool isValid(const Ref<NSTimer>& timer) {
    return timer && timer->valid();
}

}  // namespace

void zn_Pause(const Ref<NSTimer>& timer) {
    if (isValid(timer))
        timer->setFireDate(NSDate::distantFuture());
}

void zn_Resume(const Ref<NSTimer>& timer) {
    zn_ResumeAfterTimeInterval(timer, 0);
}

void zn_ResumeAfterTimeInterval(const Ref<NSTimer>& timer, double seconds) {
    if (isValid(timer))
        timer->setFireDate(NSDate::dateWithTimeIntervalSinceNow(seconds));
}

void zn_Stop(const Ref<NSTimer>& timer) {
    if (isValid(timer))
        timer->invalidate();
}

}  // namespace zn
