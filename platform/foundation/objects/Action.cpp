#include "zarnic/platform/foundation/Action.h"

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {

Action::Action(const Ref<NSObject>& target, std::string_view name) : target_(target), name_(name) {
    call_ = [name = name_](NSObject& receiver, const Ref<NSObject>& sender, const Ref<NSObject>&) {
        const Class::Method* method = receiver.runtimeClass().method(name);
        if (method == nullptr)
            throw NSException(NSInvalidArgumentException,
                              receiver.description() + " does not respond to " + name);
        (*method)(receiver, sender);
    };
}

void Action::send(const Ref<NSObject>& sender, const Ref<NSObject>& detail) const {
    if (const Ref<NSObject> target = target_.lock())
        call_(*target, sender, detail);
}

bool operator==(const Action& left, const Action& right) {
    return left.name_ == right.name_ && !left.target_.owner_before(right.target_) &&
           !right.target_.owner_before(left.target_);
}

}  // namespace zn
