#include "zarnic/platform/foundation/NSNotificationCenter.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <vector>

namespace zn {
namespace {

struct Registration {
    bool wants(const NSNotification& notification) const {
        if (!name.empty() && name != notification.name())
            return false;
        // A new object may live where a dead one did: the address alone does not tell.
        return anyObject || (notification.object() && object.lock() == notification.object());
    }

    Action action;
    const NSObject* observer;
    std::string name;
    bool anyObject;
    WeakRef<NSObject> object;
    std::atomic<bool> removed = false;
};

using Registrations = std::vector<std::shared_ptr<Registration>>;

}  // namespace

NSNotification::NSNotification(std::string name, Ref<NSObject> object, Value userInfo)
    : name_(std::move(name)), object_(std::move(object)), userInfo_(std::move(userInfo)) {}

NSNotification::~NSNotification() = default;

struct NSNotificationCenter::State {
    template <class Condition>
    void removeIf(Condition condition) {
        Registrations removed;
        std::lock_guard guard(mutex);
        const auto end = std::stable_partition(
            registrations.begin(), registrations.end(),
            [&](const auto& registration) { return !condition(*registration); });
        removed.assign(end, registrations.end());
        registrations.erase(end, registrations.end());
        for (const auto& registration : removed)
            registration->removed = true;
    }

    std::mutex mutex;
    Registrations registrations;
};

NSNotificationCenter::NSNotificationCenter() : state_(std::make_unique<State>()) {}

NSNotificationCenter::~NSNotificationCenter() = default;

Ref<NSNotificationCenter> NSNotificationCenter::defaultCenter() {
    static const auto& center = *new Ref<NSNotificationCenter>(make<NSNotificationCenter>());
    return center;
}

void NSNotificationCenter::addObserver(const Action& action, std::string_view name,
                                       const Ref<NSObject>& object) {
    const auto target = action.target();
    if (!target)
        return;
    state_->removeIf([](const Registration& other) { return !other.action.target(); });
    auto registration = std::make_shared<Registration>();
    registration->action = action;
    registration->observer = target.get();
    registration->name = name;
    registration->anyObject = object == nullptr;
    registration->object = object;
    std::lock_guard guard(state_->mutex);
    state_->registrations.push_back(std::move(registration));
}

void NSNotificationCenter::removeObserver(const Ref<NSObject>& observer) {
    removeObserver(observer.get());
}

void NSNotificationCenter::removeObserver(const NSObject* observer) {
    state_->removeIf([&](const Registration& other) { return other.observer == observer; });
}

void NSNotificationCenter::removeObserver(const Ref<NSObject>& observer, std::string_view name,
                                          const Ref<NSObject>& object) {
    state_->removeIf([&](const Registration& other) {
        return other.observer == observer.get() && (name.empty() || other.name == name) &&
               (!object || other.object.lock() == object);
    });
}

void NSNotificationCenter::postNotification(const Ref<NSNotification>& notification) {
    Registrations interested;
    {
        std::lock_guard guard(state_->mutex);
        std::ranges::copy_if(
            state_->registrations, std::back_inserter(interested),
            [&](const auto& registration) { return registration->wants(*notification); });
    }
    for (const auto& registration : interested) {
        if (!registration->removed)
            registration->action.send(notification);
    }
}

void NSNotificationCenter::postNotificationName(std::string_view name, const Ref<NSObject>& object,
                                                const Value& userInfo) {
    postNotification(make<NSNotification>(std::string(name), object, userInfo));
}

}  // namespace zn
