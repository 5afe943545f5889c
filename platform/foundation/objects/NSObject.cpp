#include "zarnic/platform/foundation/NSObject.h"

#include <functional>
#include <map>
#include <mutex>
#include <new>

#include "platform/foundation/base/FastThreadLocal.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {
namespace {

constexpr int maximumTeardownDepth = 64;

struct DeadObject {
    void* object;
    void (*destroy)(void*) noexcept;
    DeadObject* next;
};

struct Teardown {
    int depth = 0;
    DeadObject* waiting = nullptr;
    /// While an object that waited is destroyed: what keeps its memory until it has been. Its own
    /// weak reference, the last one, goes before its destructor's end.
    std::weak_ptr<const NSObject>* memory = nullptr;
};
ZN_FAST_THREAD_LOCAL constinit Teardown threadTeardown;

}  // namespace

void detail::destroyObject(void* object, void (*destroy)(void*) noexcept) noexcept {
    Teardown& teardown = threadTeardown;
    if (teardown.depth == maximumTeardownDepth) {
        if (auto* waiting = new (std::nothrow) DeadObject{object, destroy, teardown.waiting}) {
            teardown.waiting = waiting;
            return;
        }
    }
    ++teardown.depth;
    destroy(object);
    while (teardown.depth == 1 && teardown.waiting != nullptr) {
        const std::unique_ptr<DeadObject> next(
            std::exchange(teardown.waiting, teardown.waiting->next));
        std::weak_ptr<const NSObject> memory;
        teardown.memory = &memory;
        next->destroy(next->object);
        teardown.memory = nullptr;
    }
    --teardown.depth;
}

/// What few objects need, made on first use: associated values and the lock.
struct NSObject::Extras {
    std::recursive_mutex lock;
    std::mutex associationsMutex;
    std::map<const void*, Value, std::less<>> associations;
};

NSObject::NSObject() = default;

NSObject::~NSObject() {
    delete extras_.load(std::memory_order_acquire);
    // Objects inside the one that waited come here first; the last to come is the one itself.
    if (auto* const memory = threadTeardown.memory)
        *memory = weak_from_this();
}

void NSObject::init() {}

const Class& NSObject::staticClass() {
    static const Class& theClass =
        Class::define("NSObject", nullptr, [] { return make<NSObject>(); });
    return theClass;
}

const Class& NSObject::runtimeClass() const {
    return staticClass();
}

bool NSObject::isEqual(const NSObject& other) const {
    return this == &other;
}

std::size_t NSObject::hash() const {
    return std::hash<const void*>{}(this);
}

std::string NSObject::description() const {
    return "<" + runtimeClass().name() + ">";
}

bool NSObject::respondsToSelector(std::string_view name) const {
    return runtimeClass().method(name) != nullptr;
}

Value NSObject::associatedValue(const void* key) const {
    Extras* extras = extras_.load(std::memory_order_acquire);
    if (extras == nullptr)
        return {};
    std::lock_guard guard(extras->associationsMutex);
    const auto found = extras->associations.find(key);
    return found == extras->associations.end() ? Value{} : found->second;
}

void NSObject::setAssociatedValue(const void* key, Value value) {
    auto& extras = this->extras();
    // The old value leaves the lock alive in `value`: its destructor may come back here.
    std::lock_guard guard(extras.associationsMutex);
    const bool removes = value.absent();
    std::swap(extras.associations[key], value);
    if (removes)
        extras.associations.erase(key);
}

void NSObject::lock() const {
    extras().lock.lock();
}

void NSObject::unlock() const {
    extras().lock.unlock();
}

NSObject::Extras& NSObject::extras() const {
    Extras* present = extras_.load(std::memory_order_acquire);
    if (present != nullptr)
        return *present;
    auto made = std::make_unique<Extras>();
    if (extras_.compare_exchange_strong(present, made.get(), std::memory_order_acq_rel))
        return *made.release();
    return *present;
}

ObjectLock::ObjectLock(Ref<const NSObject> object) : object_(std::move(object)) {
    if (object_)
        object_->lock();
}

ObjectLock::~ObjectLock() {
    if (object_)
        object_->unlock();
}

}  // namespace zn
