#include "zarnic/platform/foundation/Class.h"

#include <map>
#include <mutex>
#include <shared_mutex>

#include "zarnic/platform/foundation/Property.h"

namespace zn {

struct Class::Data {
    std::string name;
    const Class* superclass;
    Factory factory;
    std::vector<Field> fields;
    std::vector<Property> properties;
    mutable std::shared_mutex mutex;
    std::map<std::string, Method, std::less<>> methods;
};

namespace {

struct Registry {
    std::shared_mutex mutex;
    std::map<std::string, Class*, std::less<>> classes;
};

/// Never destroyed: classes outlive every static of the program.
Registry& registry() {
    static auto& theRegistry = *new Registry;
    return theRegistry;
}

}  // namespace

Class::Class(Data* data) : data_(data) {}

Class& Class::define(std::string_view name, const Class* superclass, Factory factory) {
    return define(name, superclass, std::move(factory), {});
}

Class& Class::define(std::string_view name, const Class* superclass, Factory factory,
                     std::vector<Member> members) {
    auto* data = new Data{std::string(name), superclass, std::move(factory), {}, {}, {}, {}};
    for (Member& member : members)
        member.moveTo(data->fields, data->properties);
    auto* made = new Class(data);
    auto& known = registry();
    std::unique_lock guard(known.mutex);
    known.classes.emplace(data->name, made);
    return *made;
}

const Class* Class::named(std::string_view name) {
    // A name never comes to mean another class, and is often asked for again.
    thread_local const Class* last = nullptr;
    if (last != nullptr && last->name() == name)
        return last;
    auto& known = registry();
    std::shared_lock guard(known.mutex);
    const auto found = known.classes.find(name);
    if (found == known.classes.end())
        return nullptr;
    return last = found->second;
}

const std::string& Class::name() const {
    return data_->name;
}

const Class* Class::superclass() const {
    return data_->superclass;
}

bool Class::isSubclassOf(const Class& other) const {
    for (const Class* each = this; each != nullptr; each = each->superclass())
        if (each == &other)
            return true;
    return false;
}

Ref<NSObject> Class::create() const {
    return data_->factory ? data_->factory() : nullptr;
}

void Class::addMethod(std::string_view name, Method method) {
    std::unique_lock guard(data_->mutex);
    data_->methods.insert_or_assign(std::string(name), std::move(method));
}

const Class::Method* Class::method(std::string_view name) const {
    for (const Class* each = this; each != nullptr; each = each->superclass()) {
        std::shared_lock guard(each->data_->mutex);
        const auto found = each->data_->methods.find(name);
        if (found != each->data_->methods.end())
            return &found->second;
    }
    return nullptr;
}

std::span<const Field> Class::fields() const {
    return data_->fields;
}

std::span<const Property> Class::properties() const {
    return data_->properties;
}

const Field* Class::field(std::string_view name) const {
    for (const Class* each = this; each != nullptr; each = each->superclass())
        for (const Field& field : each->data_->fields)
            if (field.name() == name)
                return &field;
    return nullptr;
}

const Property* Class::property(std::string_view name) const {
    for (const Class* each = this; each != nullptr; each = each->superclass())
        for (const Property& property : each->data_->properties)
            if (property.name() == name)
                return &property;
    return nullptr;
}

}  // namespace zn
