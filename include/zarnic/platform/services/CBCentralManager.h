#pragma once

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/services/BluetoothAdapter.h"

namespace zn {

class CBCentralManager;

class ZN_EXPORT CBCentralManagerDelegate {
public:
    virtual ~CBCentralManagerDelegate() = default;
    virtual void centralManagerDidUpdateState(const Ref<CBCentralManager>& central) = 0;
};

/// Whether Bluetooth can be used, told to a delegate on the main queue: the first state as soon as
/// it is known, never from inside the making of the manager, then every change. Main thread only.
class ZN_EXPORT CBCentralManager final : public NSObject {
    ZN_OBJECT(CBCentralManager, NSObject)
public:
    struct Options {
        /// Whether the system may ask the user to turn Bluetooth on. No service on Linux offers
        /// that, so nobody is asked.
        bool showPowerAlert = false;
    };

    /// The delegate is held weakly.
    CBCentralManager(const Ref<CBCentralManagerDelegate>& delegate, Options options);
    ~CBCentralManager() override;
    void init() override;

    Ref<CBCentralManagerDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const Ref<CBCentralManagerDelegate>& delegate) { delegate_ = delegate; }
    const Options& options() const { return options_; }
    /// What the delegate was told last; `Unknown` before.
    CBManagerState state() const { return state_; }

private:
    void update(CBManagerState state);

    WeakRef<CBCentralManagerDelegate> delegate_;
    Options options_;
    CBManagerState state_ = CBManagerState::Unknown;
    RunLoopToken observation_;
};

}  // namespace zn
