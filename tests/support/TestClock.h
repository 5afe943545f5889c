#pragma once

#include <memory>

#include "zarnic/platform/foundation/ManualClock.h"

namespace zn {

/// The process's clock from the first call on: 0 on the monotonic clock, 2018-01-01 on the wall.
inline ManualClock& testClock() {
    static const std::shared_ptr<ManualClock> clock = [] {
        auto made = std::make_shared<ManualClock>();
        Clock::setShared(made);
        return made;
    }();
    return *clock;
}

}  // namespace zn
