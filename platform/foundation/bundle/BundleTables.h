#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/foundation/bundle/StringsTable.h"

namespace zn {

class NSBundle;

/// The strings tables of a bundle by name, read on first use and kept as long as this object. Any
/// thread; finding one that was read takes no lock.
class BundleTables {
public:
    BundleTables() = default;
    ~BundleTables();
    BundleTables(const BundleTables&) = delete;
    BundleTables& operator=(const BundleTables&) = delete;

    /// Empty, and logged once, when the file cannot be read; empty when there is none.
    const StringsTable& named(const NSBundle& bundle, std::string_view name);

private:
    struct Node;
    const Node* find(std::string_view name) const;

    std::atomic<Node*> first_ = nullptr;
    std::mutex reading_;
};

}  // namespace zn
