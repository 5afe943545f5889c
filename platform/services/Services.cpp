#include "zarnic/platform/services/Services.h"

#include <map>
#include <mutex>

#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

struct Entry {
    std::shared_ptr<void> implementation;
    bool used = false;
};

/// Recursive: making one service may ask for another. Never destroyed: threads may outlive `main`.
struct Registry {
    std::recursive_mutex mutex;
    std::map<std::type_index, Entry> entries;
};

Registry& registry() {
    static auto& theRegistry = *new Registry;
    return theRegistry;
}

}  // namespace

std::shared_ptr<void> Services::find(std::type_index seam, const Factory& factory) {
    auto& services = registry();
    std::lock_guard guard(services.mutex);
    auto& entry = services.entries[seam];
    if (!entry.implementation)
        entry.implementation = factory();
    entry.used = true;
    return entry.implementation;
}

void Services::put(std::type_index seam, std::shared_ptr<void> implementation) {
    auto& services = registry();
    std::lock_guard guard(services.mutex);
    auto& entry = services.entries[seam];
    if (entry.used)
        throw NSException(NSInternalInconsistencyException,
                          "a service can be replaced only before its first use");
    entry.implementation = std::move(implementation);
}

}  // namespace zn
