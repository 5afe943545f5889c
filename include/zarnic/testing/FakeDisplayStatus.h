#pragma once

#include "zarnic/platform/services/DisplayStatus.h"

namespace zn {

/// A screen that a test locks and unlocks. Main thread only.
class FakeDisplayStatus final : public DisplayStatus {
public:
    std::uint64_t state() override { return state_; }
    /// Observers hear of a change when the main queue runs.
    void setState(std::uint64_t state) {
        if (state == state_)
            return;
        state_ = state;
        announceChange();
    }

protected:
    void begin() override {}

private:
    std::uint64_t state_ = 1;
};

}  // namespace zn
