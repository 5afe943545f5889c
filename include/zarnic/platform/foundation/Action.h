#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// A target and one of its methods, as a value: what timers, control events, gesture recognisers
/// and notifications call. Two actions are equal when target and method name are. The target is
/// held weakly; who must keep it alive (a timer) does so itself.
class ZN_EXPORT Action {
public:
    Action() = default;

    /// `method` takes nothing, or the sender, or the sender and a detail (an event), as
    /// `const Ref<...>&`; a sender of another class arrives as null.
    template <class T, class Method>
    Action(const Ref<T>& target, std::string_view name, Method method)
        : target_(target), name_(name), call_(bind<T>(method)) {}

    /// Looks the method up in the target's runtime class when it is sent.
    Action(const Ref<NSObject>& target, std::string_view name);

    explicit operator bool() const { return !name_.empty(); }
    Ref<NSObject> target() const { return target_.lock(); }
    const std::string& name() const { return name_; }

    /// Calls the method; does nothing when the target is gone. Throws
    /// `NSInvalidArgumentException` when the target knows no method of the name.
    void send(const Ref<NSObject>& sender = nullptr, const Ref<NSObject>& detail = nullptr) const;

    friend ZN_EXPORT bool operator==(const Action& left, const Action& right);

private:
    using Call = std::function<void(NSObject&, const Ref<NSObject>&, const Ref<NSObject>&)>;

    template <class T, class Owner>
    static Call bind(void (Owner::*method)()) {
        return [method](NSObject& target, const Ref<NSObject>&, const Ref<NSObject>&) {
            (dynamic_cast<T&>(target).*method)();
        };
    }
    template <class T, class Owner, class Sender>
    static Call bind(void (Owner::*method)(const Ref<Sender>&)) {
        return [method](NSObject& target, const Ref<NSObject>& sender, const Ref<NSObject>&) {
            (dynamic_cast<T&>(target).*method)(as<Sender>(sender));
        };
    }
    template <class T, class Owner, class Sender, class Detail>
    static Call bind(void (Owner::*method)(const Ref<Sender>&, const Ref<Detail>&)) {
        return
            [method](NSObject& target, const Ref<NSObject>& sender, const Ref<NSObject>& detail) {
                (dynamic_cast<T&>(target).*method)(as<Sender>(sender), as<Detail>(detail));
            };
    }

    WeakRef<NSObject> target_;
    std::string name_;
    Call call_;
};

}  // namespace zn

/// `ZN_ACTION(target, method)`: the action that calls `method` of the object `target`.
#define ZN_ACTION(target, method) \
    ::zn::Action((target), #method, &std::decay_t<decltype(*(target))>::method)
