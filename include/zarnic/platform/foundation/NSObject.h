#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zarnic/platform/foundation/Export.h"

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
    static constexpr const char* staticClassName() { return "NSObject"; }
    virtual const Class& runtimeClass() const;

    /// Identity unless a class overrides it.
    virtual bool isEqual(const NSObject& other) const;
    virtual std::size_t hash() const;
    virtual std::string description() const;

    /// Whether the runtime class, or one above it, publishes a method of this name.
    bool respondsToSelector(std::string_view name) const;

    /// The value of what the class publishes under the key (see `Property.h`): a property `key` or
    /// `isKey`, else a stored field `_key`, `_isKey`, `key` or `isKey`. Numbers come boxed.
    Value valueForKey(std::string_view key) const;
    /// Writes it. Numbers and numeric texts become the type of the target. Throws
    /// `NSInvalidArgumentException` for a value that the target cannot take, an absent or null one
    /// for a number included.
    void setValueForKey(const Value& value, std::string_view key);
    /// What a key that names nothing comes to: both throw `NSUndefinedKeyException` unless a class
    /// overrides them.
    virtual Value valueForUndefinedKey(std::string_view key) const;
    virtual void setValueForUndefinedKey(const Value& value, std::string_view key);

    /// The names of stored fields that archiving and copying leave out; none by default. Names that
    /// match no field have no effect.
    virtual std::vector<std::string> zn_ignoredNames() const;

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

namespace detail {
/// Destroys the object now or, deep inside the destruction of others, right after them: so a chain
/// of objects of any length ends in bounded stack.
ZN_EXPORT void destroyObject(void* object, void (*destroy)(void*) noexcept) noexcept;

/// The allocator of `make`. An object's memory outlives its last reference until its destructor
/// has run, because the object holds a weak reference to itself.
template <class T>
struct ObjectAllocator {
    using value_type = T;

    ObjectAllocator() noexcept = default;
    template <class U>
    explicit ObjectAllocator(const ObjectAllocator<U>&) noexcept {}

    T* allocate(std::size_t count) { return std::allocator<T>().allocate(count); }
    void deallocate(T* memory, std::size_t count) { std::allocator<T>().deallocate(memory, count); }
    template <class U>
    void destroy(U* object) noexcept {
        destroyObject(object, [](void* dead) noexcept { static_cast<U*>(dead)->~U(); });
    }
    friend bool operator==(const ObjectAllocator&, const ObjectAllocator&) = default;
};
}  // namespace detail

/// Constructs a `T` with the arguments, then calls its virtual `init()`.
template <class T, class... Arguments>
Ref<T> make(Arguments&&... arguments) {
    auto object = std::allocate_shared<T>(detail::ObjectAllocator<T>(),
                                          std::forward<Arguments>(arguments)...);
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
