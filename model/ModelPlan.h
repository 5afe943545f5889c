#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Property.h"

namespace zn {

/// What the dictionary conversions need of a class, worked out once. Lives for ever.
class ModelPlan {
public:
    /// A property to fill, of the class or one above it.
    struct Target {
        const Property* property;
        /// Where the values of its name stand among those of all names.
        std::size_t name;
        /// The class name between at-sign and quotation marks, if the attributes have one.
        std::optional<std::string> className;
    };

    static const ModelPlan& of(const Class& type);

    /// The properties that become entries of a dictionary: the class's own.
    const std::vector<const Property*>& sources() const { return sources_; }
    /// Their names, in their order.
    const KeyTable& sourceNames() const { return sourceNames_; }

    /// The properties that a dictionary fills: the class's own, then those of each class above.
    const std::vector<Target>& targets() const { return targets_; }
    /// Their names in small letters, each once.
    const KeyTable& lowercaseNames() const { return lowercaseNames_; }
    /// The index of the name that the key is without regard to case, or `KeyTable::notFound`.
    std::size_t findWithoutCase(std::string_view key) const;

private:
    explicit ModelPlan(const Class& type);
    void addSource(const Property& property);
    void addTarget(const Class& type, const Property& property);

    std::vector<const Property*> sources_;
    KeyTable sourceNames_;
    std::vector<Target> targets_;
    KeyTable lowercaseNames_;
};

/// How the keys of the dictionary before were spelled, in their order, and what they meant to the
/// class. Dictionaries of one origin spell alike, and comparing is faster than matching.
class Spellings {
public:
    /// Those of this thread, for the class.
    static Spellings& of(const Class& type);

    const ModelPlan& plan() const { return *plan_; }
    /// The same as the plan's `findWithoutCase` for the key at this position.
    std::size_t find(std::size_t position, std::string_view key) {
        if (position < known_.size() && known_[position].key == key)
            return known_[position].name;
        return learn(position, key);
    }

private:
    struct Spelling {
        std::string key;
        std::size_t name = KeyTable::notFound;
    };
    std::size_t learn(std::size_t position, std::string_view key);

    const Class* type_ = nullptr;
    const ModelPlan* plan_ = nullptr;
    std::vector<Spelling> known_;
};

}  // namespace zn
