#include "platform/foundation/bundle/BundleTables.h"

#include <optional>
#include <utility>

#include "platform/foundation/files/FileBytes.h"
#include "zarnic/platform/foundation/NSBundle.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {
namespace {

/// That of the best localization that has one, of the base, or directly in the bundle.
std::optional<std::string> pathOfTable(const NSBundle& bundle, const std::string& table) {
    const std::vector<std::string> localizations = bundle.localizations();
    if (!localizations.empty()) {
        auto folders = bundle.preferredLocalizations();
        folders.emplace_back("Base");
        for (std::string& folder : folders) {
            if (auto path =
                    bundle.pathForResource(folder.append(".lproj/").append(table), "strings"))
                return path;
        }
    }
    return bundle.pathForResource(table, "strings");
}

}  // namespace

struct BundleTables::Node {
    Node(std::string tableName, std::string bytes, std::string& error, Node* rest)
        : name(std::move(tableName)), table(std::move(bytes), error), next(rest) {}

    std::string name;
    StringsTable table;
    Node* next;
};

BundleTables::~BundleTables() {
    for (Node* node = first_; node != nullptr;)
        delete std::exchange(node, node->next);
}

const StringsTable& BundleTables::named(const NSBundle& bundle, std::string_view name) {
    if (const Node* node = find(name))
        return node->table;
    std::lock_guard guard(reading_);
    if (const Node* node = find(name))
        return node->table;
    const auto path = pathOfTable(bundle, std::string(name));
    std::string error;
    auto* node = new Node(std::string(name), path ? fileBytes(*path).value_or("") : std::string(),
                          error, first_.load());
    first_ = node;
    if (!error.empty())
        NSLog("%s: %s", path->c_str(), error.c_str());
    return node->table;
}

const BundleTables::Node* BundleTables::find(std::string_view name) const {
    const Node* node = first_.load(std::memory_order_acquire);
    while (node != nullptr && node->name != name)
        node = node->next;
    return node;
}

}  // namespace zn
