#pragma once

#include "zarnic/platform/foundation/NSNumber.h"
#include "zarnic/platform/foundation/NSPointerArray.h"
#include "zarnic/platform/services/CBCentralManager.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

/// Whether Bluetooth is powered on, told to any number of observers at each change. Main thread
/// only. It is a controller that is never shown.
class ZN_EXPORT ZNBluetoothHelper final : public UIViewController, public CBCentralManagerDelegate {
    ZN_OBJECT(ZNBluetoothHelper, UIViewController)
public:
    /// Use `SharedInstance`.
    ZNBluetoothHelper();
    ~ZNBluetoothHelper() override;
    void init() override;

    static Ref<ZNBluetoothHelper> SharedInstance();
    /// Makes the shared instance, so that the state is known when it is needed.
    static void InitBluetoothManager();
    /// Whether Bluetooth is on; false before the machine has answered.
    static bool BluetoothStatus();

    /// Has the observer told of each change, in the order of adding, through its method
    /// `ZNBluetoothHelperDelegateStatus` (see `ZN_BLUETOOTH_OBSERVER`); one without it is kept and
    /// never called. Held weakly; a null one, and one that is there already, are ignored.
    static void AddObserve(const Ref<NSObject>& observer);
    static void RemoveObserve(const Ref<NSObject>& observer);

    const Ref<CBCentralManager>& centralManager() const { return centralManager_; }
    void setCentralManager(const Ref<CBCentralManager>& manager) { centralManager_ = manager; }
    bool status() const { return status_; }
    void setStatus(bool status) { status_ = status; }
    /// Made on first use.
    const Ref<NSPointerArray>& observes();
    void setObserves(const Ref<NSPointerArray>& observers) { observes_ = observers; }

    void centralManagerDidUpdateState(const Ref<CBCentralManager>& central) override;

private:
    Ref<CBCentralManager> centralManager_;
    bool status_ = false;
    Ref<NSPointerArray> observes_;
};

namespace detail {
/// Classes are made without the methods that are found by name only.
template <class T>
bool publishBluetoothObserver() {
    const_cast<Class&>(T::staticClass())
        .addMethod("ZNBluetoothHelperDelegateStatus",
                   [](NSObject& receiver, const Ref<NSObject>& status) {
                       dynamic_cast<T&>(receiver).ZNBluetoothHelperDelegateStatus(
                           static_cast<const NSNumber&>(*status).boolValue());
                   });
    return true;
}
}  // namespace detail

}  // namespace zn

/// In a source file: publishes `void Type::ZNBluetoothHelperDelegateStatus(bool status)`, which is
/// how the helper finds it.
#define ZN_BLUETOOTH_OBSERVER(Type)                                  \
    [[maybe_unused]] static const bool zn_bluetoothObserver_##Type = \
        ::zn::detail::publishBluetoothObserver<Type>()
