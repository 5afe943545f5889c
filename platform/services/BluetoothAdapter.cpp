#include "zarnic/platform/services/BluetoothAdapter.h"

#include "platform/services/Listeners.h"

namespace zn {

struct BluetoothAdapter::Observers {
    Listeners<CBManagerState> listeners;
};

BluetoothAdapter::BluetoothAdapter() : observers_(std::make_unique<Observers>()) {}

BluetoothAdapter::~BluetoothAdapter() = default;

RunLoopToken BluetoothAdapter::observe(std::function<void(CBManagerState)> handler) {
    auto& listeners = observers_->listeners;
    const auto listener = listeners.add(std::move(handler));
    if (state_ != CBManagerState::Unknown)
        listeners.tell(listener, state_);
    if (!begun_) {
        begun_ = true;
        begin();
    }
    return listeners.token(listener);
}

void BluetoothAdapter::announce(CBManagerState state) {
    if (state == state_)
        return;
    state_ = state;
    observers_->listeners.tellAll(state);
}

}  // namespace zn
