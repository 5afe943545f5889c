#pragma once

#include "zarnic/platform/services/BluetoothAdapter.h"

namespace zn {

/// A radio that a test switches. Main thread only.
class FakeBluetoothAdapter final : public BluetoothAdapter {
public:
    /// Observers hear it when the main queue runs.
    void setState(CBManagerState state) { announce(state); }

protected:
    void begin() override {}
};

}  // namespace zn
