#pragma once

#include <functional>
#include <memory>
#include <typeindex>

#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// The process's implementation of each seam to the outside world. A seam is an abstract class with
/// a static `systemImplementation()`, which is made on first use unless another one was put in its
/// place before. Safe from any thread.
class ZN_EXPORT Services {
public:
    template <class Seam>
    static Ref<Seam> get() {
        return std::static_pointer_cast<Seam>(
            find(typeid(Seam), [] { return std::shared_ptr<void>(Seam::systemImplementation()); }));
    }

    /// Throws `NSInternalInconsistencyException` when the seam is in use already.
    template <class Seam>
    static void replace(Ref<Seam> implementation) {
        put(typeid(Seam), std::move(implementation));
    }

private:
    using Factory = std::function<std::shared_ptr<void>()>;
    static std::shared_ptr<void> find(std::type_index seam, const Factory& factory);
    static void put(std::type_index seam, std::shared_ptr<void> implementation);
};

}  // namespace zn
