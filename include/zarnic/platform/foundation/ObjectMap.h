#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// Objects by key, itself an object with a lock. Hold that (`ObjectLock`) where several threads use
/// the map. The order of its entries is not defined.
template <std::derived_from<NSObject> T>
class ZN_EXPORT ObjectMap final : public NSObject {
public:
    std::size_t count() const noexcept { return objects_.size(); }
    bool empty() const noexcept { return objects_.empty(); }

    /// Null for a key that is not there.
    Ref<T> objectForKey(std::string_view key) const {
        const auto found = objects_.find(key);
        return found == objects_.end() ? nullptr : found->second;
    }
    bool contains(std::string_view key) const { return objects_.contains(key); }
    auto begin() const { return objects_.begin(); }
    auto end() const { return objects_.end(); }

    /// Replaces what is there. Throws `NSInvalidArgumentException` for null.
    void setObjectForKey(Ref<T> object, std::string_view key) {
        if (!object)
            throw NSException(NSInvalidArgumentException, "a map holds no null object");
        objects_.insert_or_assign(std::string(key), std::move(object));
    }
    void removeObjectForKey(std::string_view key) {
        if (const auto found = objects_.find(key); found != objects_.end())
            objects_.erase(found);
    }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const noexcept {
            return std::hash<std::string_view>()(key);
        }
    };
    std::unordered_map<std::string, Ref<T>, Hash, std::equal_to<>> objects_;
};

}  // namespace zn
