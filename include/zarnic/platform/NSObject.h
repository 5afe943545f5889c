#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "zarnic/platform/Export.h"

namespace zn {

class Class;
class Value;

/// A shared, owning reference. Parents own children; everything that points back is a `WeakRef`.
template <class T>
using Ref = std::shared_ptr<T>;
template <class T>
using WeakRef = std::weak_ptr<T>;

/// The root of every class of the library. Objects are made with `make<T>(...)` only.
class ZN_EXPORT NSObject : public std::enable_shared_from_this<NSObject> {
public:
    NSObject();
    virtual ~NSObject();
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;

    /// Second phase of construction, called once by `make`. Only from here on may an object hand
    /// itself out, call overridden methods, or become a delegate or a target. Overrides call the
    /// base class first.
    virtual void init();

    /// The nearest registered class of this object (see `ZN_OBJECT`).
    static const Class& staticClass();
    virtual const Class& runtimeClass() const;

    /// Identity unless a class overrides it.
    virtual bool isEqual(const NSObject& other) const;
    virtual std::size_t hash() const;
    virtual std::string description() const;

    /// Whether the runtime class, or one above it, publishes a method of this name.
    bool respondsToSelector(std::string_view name) const;

    /// Associated values, by the key pointer's value (never its text). Setting an absent value
    /// removes the entry. Safe from any thread; released when the owner dies.
    Value associatedValue(const void* key) const;
    void setAssociatedValue(const void* key, Value value);

    /// The object's recursive lock, made on first use (see `ObjectLock`).
    void lock() const;
    void unlock() const;

private:
    struct Extras;
    Extras& extras() const;

    mutable std::atomic<Extras*> extras_ = nullptr;
};

/// Constructs a `T` with the arguments, then calls its virtual `init()`.
template <class T, class... Arguments>
Ref<T> make(Arguments&&... arguments) {
    auto object = std::make_shared<T>(std::forward<Arguments>(arguments)...);
    object->init();
    return object;
}

/// The owning reference of an object that `make` made; null while it is being destroyed.
template <class T>
Ref<T> ref(T* object) {
    return std::static_pointer_cast<T>(object->weak_from_this().lock());
}

/// `object` as a `T` when it is one, else null.
template <class T, class U>
Ref<T> as(const Ref<U>& object) {
    return std::dynamic_pointer_cast<T>(object);
}

/// Holds the recursive lock of an object for a scope, and the object with it. A null object locks
/// nothing.
class ZN_EXPORT ObjectLock {
public:
    explicit ObjectLock(Ref<const NSObject> object);
    ~ObjectLock();
    ObjectLock(const ObjectLock&) = delete;
    ObjectLock& operator=(const ObjectLock&) = delete;

private:
    Ref<const NSObject> object_;
};

}  // namespace zn
