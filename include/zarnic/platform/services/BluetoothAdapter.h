#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "zarnic/platform/foundation/NSObject.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// The platform's numbers.
enum class CBManagerState : std::int64_t {
    Unknown,
    Resetting,
    Unsupported,
    Unauthorized,
    PoweredOff,
    PoweredOn,
};

/// The machine's Bluetooth radio: the seam behind `CBCentralManager`. Main thread only.
class ZN_EXPORT BluetoothAdapter : public NSObject {
public:
    BluetoothAdapter();
    ~BluetoothAdapter() override;

    /// This machine's: BlueZ, over the system's message bus.
    static Ref<BluetoothAdapter> systemImplementation();

    /// What is known now; `Unknown` until the machine has answered.
    CBManagerState state() const { return state_; }

    /// Tells the handler the state as soon as it is known, then each real change once, in order;
    /// always later, on the main queue. Ends when the token does.
    RunLoopToken observe(std::function<void(CBManagerState)> handler);

protected:
    /// Begins to look, when somebody first observes: `announce` follows, now or later.
    virtual void begin() = 0;
    /// What the state is now; one that is known already tells nobody.
    void announce(CBManagerState state);

private:
    struct Observers;
    CBManagerState state_ = CBManagerState::Unknown;
    bool begun_ = false;
    std::unique_ptr<Observers> observers_;
};

}  // namespace zn
