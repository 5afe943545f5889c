#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Action.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSObject.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

class ZN_EXPORT NSNotification final : public NSObject {
    ZN_OBJECT(NSNotification, NSObject)
public:
    NSNotification(std::string name, Ref<NSObject> object, Value userInfo);
    ~NSNotification() override;

    const std::string& name() const { return name_; }
    const Ref<NSObject>& object() const { return object_; }
    /// A dictionary, or absent.
    const Value& userInfo() const { return userInfo_; }

private:
    std::string name_;
    Ref<NSObject> object_;
    Value userInfo_;
};

/// Calls observers synchronously on the posting thread, in the order of registration. Observers
/// are held weakly; the same one registered twice is called twice; those removed while a posting
/// runs are skipped, those added are not called. Safe from any thread.
class ZN_EXPORT NSNotificationCenter final : public NSObject {
    ZN_OBJECT(NSNotificationCenter, NSObject)
public:
    NSNotificationCenter();
    ~NSNotificationCenter() override;

    static Ref<NSNotificationCenter> defaultCenter();

    /// An empty name or a null object means any. Does nothing for an action without a target.
    void addObserver(const Action& action, std::string_view name,
                     const Ref<NSObject>& object = nullptr);
    /// Removing one that is not registered does nothing.
    void removeObserver(const Ref<NSObject>& observer);
    /// For destructors, where the observer can no longer hand itself out.
    void removeObserver(const NSObject* observer);
    /// An empty name or a null object removes whatever was registered for the other.
    void removeObserver(const Ref<NSObject>& observer, std::string_view name,
                        const Ref<NSObject>& object = nullptr);

    void postNotification(const Ref<NSNotification>& notification);
    void postNotificationName(std::string_view name, const Ref<NSObject>& object = nullptr,
                              const Value& userInfo = {});

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
