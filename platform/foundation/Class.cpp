#include "zarnic/platform/Class.h"

#include <map>
#include <mutex>
#include <shared_mutex>

namespace zn {

struct Class::Data {
    std::string name;
    const Class* superclass;
    Factory factory;
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
    auto& known = registry();
    std::unique_lock guard(known.mutex);
    const auto found = known.classes.find(name);
    if (found != known.classes.end())
        return *found->second;
    auto* data = new Data{std::string(name), superclass, std::move(factory), {}, {}};
    return *known.classes.emplace(data->name, new Class(data)).first->second;
}

const Class* Class::named(std::string_view name) {
    auto& known = registry();
    std::shared_lock guard(known.mutex);
    const auto found = known.classes.find(name);
    return found == known.classes.end() ? nullptr : found->second;
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

}  // namespace zn
