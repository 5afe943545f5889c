#include "model/ModelPlan.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>

#include "platform/foundation/base/FastThreadLocal.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

struct Plans {
    std::shared_mutex mutex;
    std::unordered_map<const Class*, std::unique_ptr<const ModelPlan>> plans;
};

/// Never destroyed, like the classes.
Plans& allPlans() {
    static auto& thePlans = *new Plans;
    return thePlans;
}

/// The text between the first `@"` and the `",` that follows.
std::optional<std::string> classNameIn(std::string_view attributes) {
    const std::size_t start = attributes.find("@\"");
    const std::size_t end = attributes.find("\",");
    if (start == std::string_view::npos || end == std::string_view::npos)
        return std::nullopt;
    return std::string(attributes.substr(start + 2, end - start - 2));
}

}  // namespace

ModelPlan::ModelPlan(const Class& type) {
    for (const Property& property : type.properties())
        addSource(property);
    const Class* each = &type;
    do {
        for (const Property& property : each->properties())
            addTarget(type, property);
        each = each->superclass();
    } while (each != nullptr && each != &NSObject::staticClass());
}

void ModelPlan::addSource(const Property& property) {
    if (sourceNames_.add(property.name()) == sources_.size())
        sources_.push_back(&property);
}

void ModelPlan::addTarget(const Class& type, const Property& property) {
    // A class may declare a property of its superclass again; values go to the one in force.
    targets_.push_back({type.property(property.name()),
                        lowercaseNames_.add(property.lowercaseName()),
                        classNameIn(property.attributes())});
}

const ModelPlan& ModelPlan::of(const Class& type) {
    ZN_FAST_THREAD_LOCAL struct {
        const Class* type;
        const ModelPlan* plan;
    } last;
    if (last.type == &type)
        return *last.plan;
    auto& known = allPlans();
    const ModelPlan* found = nullptr;
    {
        const std::shared_lock guard(known.mutex);
        const auto place = known.plans.find(&type);
        found = place == known.plans.end() ? nullptr : place->second.get();
    }
    if (found == nullptr) {
        std::unique_ptr<const ModelPlan> made(new ModelPlan(type));
        const std::unique_lock guard(known.mutex);
        found = known.plans.try_emplace(&type, std::move(made)).first->second.get();
    }
    last = {&type, found};
    return *found;
}

std::size_t ModelPlan::findWithoutCase(std::string_view key) const {
    char lowercase[64];
    const auto isPlain = [](char letter) { return static_cast<unsigned char>(letter) < 0x80; };
    if (key.size() > sizeof lowercase || !std::ranges::all_of(key, isPlain))
        return lowercaseNames_.find(lowercaseString(key));
    std::ranges::transform(key, lowercase, [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lowercaseNames_.find({lowercase, key.size()});
}

Spellings& Spellings::of(const Class& type) {
    thread_local Spellings spellings;
    if (spellings.type_ != &type) {
        spellings.type_ = &type;
        spellings.plan_ = &ModelPlan::of(type);
        spellings.known_.clear();
    }
    return spellings;
}

std::size_t Spellings::learn(std::size_t position, std::string_view key) {
    constexpr std::size_t mostRemembered = 64;
    const std::size_t name = plan_->findWithoutCase(key);
    if (position == known_.size() && position < mostRemembered)
        known_.emplace_back();
    if (position < known_.size())
        known_[position] = {std::string(key), name};
    return name;
}

}  // namespace zn
