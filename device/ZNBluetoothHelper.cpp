#include "zarnic/ZNBluetoothHelper.h"

#include <string_view>

namespace zn {
namespace {

constexpr std::string_view notice = "ZNBluetoothHelperDelegateStatus";

void tell(const Ref<NSObject>& observer, bool status) {
    if (const auto* method = observer->runtimeClass().method(notice))
        (*method)(*observer, NSNumber::numberWithBool(status));
}

}  // namespace

ZNBluetoothHelper::ZNBluetoothHelper() = default;
ZNBluetoothHelper::~ZNBluetoothHelper() = default;

void ZNBluetoothHelper::init() {
    UIViewController::init();
    centralManager_ = make<CBCentralManager>(ref(this), CBCentralManager::Options{true});
    status_ = false;
}

Ref<ZNBluetoothHelper> ZNBluetoothHelper::SharedInstance() {
    static const auto& instance = *new Ref<ZNBluetoothHelper>(make<ZNBluetoothHelper>());
    return instance;
}

void ZNBluetoothHelper::InitBluetoothManager() {
    SharedInstance();
}

bool ZNBluetoothHelper::BluetoothStatus() {
    return SharedInstance()->status();
}

void ZNBluetoothHelper::AddObserve(const Ref<NSObject>& observer) {
    if (!observer)
        return;
    const auto& observers = *SharedInstance()->observes();
    for (std::size_t index = 0; index < observers.count(); ++index) {
        if (observers.pointerAtIndex(index).object() == observer)
            return;
    }
    SharedInstance()->observes()->addPointer(observer);
}

void ZNBluetoothHelper::RemoveObserve(const Ref<NSObject>& observer) {
    if (!observer)
        return;
    auto& observers = *SharedInstance()->observes();
    for (std::size_t index = 0; index < observers.count();) {
        if (observers.pointerAtIndex(index).object() == observer)
            observers.removePointerAtIndex(index);
        else
            ++index;
    }
}

const Ref<NSPointerArray>& ZNBluetoothHelper::observes() {
    if (!observes_)
        observes_ = NSPointerArray::weakObjectsPointerArray();
    return observes_;
}

/// An observer may add and remove observers: the count is read anew each time.
void ZNBluetoothHelper::centralManagerDidUpdateState(const Ref<CBCentralManager>& central) {
    status_ = central->state() == CBManagerState::PoweredOn;
    const Ref<NSPointerArray> observers = observes();
    for (std::size_t index = 0; index < observers->count();) {
        const Ref<NSObject> observer = observers->pointerAtIndex(index).object();
        if (!observer) {
            observers->removePointerAtIndex(index);
            continue;
        }
        tell(observer, status_);
        ++index;
    }
}

}  // namespace zn
