#include <algorithm>
#include <span>

#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/Property.h"

namespace zn {
namespace {

/// Which fields a walk visits at each class from the receiver's up to the root.
enum class Fields {
    OfReceiversClass,
    OfEachClass,
};

/// Visits the stored fields that the receiver does not ignore; the root's are never visited.
template <class Visit>
void walk(const NSObject& receiver, Fields which, const Visit& visit) {
    const Class& own = receiver.runtimeClass();
    const auto ignored = receiver.zn_ignoredNames();
    for (const Class* each = &own; each != nullptr && each != &NSObject::staticClass();
         each = each->superclass())
        for (const Field& field : (which == Fields::OfEachClass ? *each : own).fields())
            if (std::ranges::find(ignored, field.name()) == ignored.end())
                visit(field);
}

bool isPresent(const Value& value) {
    return !value.absent() && !value.isNull();
}

}  // namespace

void zn_encode(const Ref<const NSObject>& receiver, const Ref<NSCoder>& coder) {
    if (!receiver || !coder)
        return;
    // On purpose: the same fields at every class, so that those of superclasses are never written.
    walk(*receiver, Fields::OfReceiversClass, [&](const Field& field) {
        const Value value = field.get(*receiver);
        if (isPresent(value))
            coder->encodeObject(value, field.name());
    });
}

void zn_decode(const Ref<NSObject>& receiver, const Ref<NSCoder>& coder) {
    if (!receiver || !coder)
        return;
    walk(*receiver, Fields::OfEachClass, [&](const Field& field) {
        const Value value = coder->decodeObjectForKey(field.name());
        if (isPresent(value))
            field.set(*receiver, value);
    });
}

Ref<NSObject> zn_copyWithZone(const Ref<const NSObject>& receiver) {
    if (!receiver)
        return nullptr;
    auto copy = receiver->runtimeClass().create();
    if (!copy)
        return nullptr;
    walk(*receiver, Fields::OfEachClass, [&](const Field& field) {
        const Value value = field.get(*receiver);
        if (isPresent(value))
            field.set(*copy, value);
    });
    return copy;
}

}  // namespace zn
