#include "zarnic/platform/services/CBCentralManager.h"

#include "zarnic/platform/services/Services.h"

namespace zn {

CBCentralManager::CBCentralManager(const Ref<CBCentralManagerDelegate>& delegate, Options options)
    : delegate_(delegate), options_(options) {}

CBCentralManager::~CBCentralManager() = default;

void CBCentralManager::init() {
    NSObject::init();
    observation_ = Services::get<BluetoothAdapter>()->observe(
        [weak = std::weak_ptr(ref(this))](CBManagerState state) {
            if (const auto manager = weak.lock())
                manager->update(state);
        });
}

void CBCentralManager::update(CBManagerState state) {
    state_ = state;
    if (const auto delegate = delegate_.lock())
        delegate->centralManagerDidUpdateState(ref(this));
}

}  // namespace zn
