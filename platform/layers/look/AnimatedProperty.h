#pragma once

#include <string_view>

#include "platform/layers/look/LayerState.h"

namespace zn {

/// A property of a layer that animates, by its name.
struct AnimatedProperty {
    std::string_view name;
    CAValue (*get)(const LayerState&);
    /// A value of another kind changes nothing.
    void (*set)(LayerState&, const CAValue&);

    /// Null for a name that stands for nothing.
    static const AnimatedProperty* named(std::string_view name);
};

/// Between two values; of different kinds or shapes it is the second one.
CAValue interpolate(const CAValue& from, const CAValue& to, double progress);

}  // namespace zn
