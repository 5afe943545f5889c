#include "platform/foundation/plist/PropertyListGraph.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

std::size_t itemCount(const Value& container) {
    return container.isArray() ? container.array().count() : container.dictionary().count();
}

/// Tells one container from every other; null for an empty one.
const Value* identity(const Value& container) {
    if (itemCount(container) == 0)
        return nullptr;
    return container.isArray() ? container.array().begin()
                               : &(*container.dictionary().begin()).second;
}

bool isAllowedLeaf(const Value& value) {
    if (const auto date = value.object<NSDate>())
        return !std::isnan(date->timeIntervalSince1970());
    return value.isNumber() || value.isData();
}

std::uint64_t saturatingSum(std::uint64_t left, std::uint64_t right) {
    return left + std::min(right, std::numeric_limits<std::uint64_t>::max() - left);
}

}  // namespace

std::optional<std::uint64_t> archiveReference(const Value& value) {
    if (!value.isDictionary() || value.dictionary().count() != 1)
        return std::nullopt;
    const Value& number = value.dictionary()["CF$UID"];
    const bool whole = number.kind() == Value::Kind::Unsigned ||
                       (number.kind() == Value::Kind::Integer && number.longLongValue() >= 0);
    return whole ? std::optional(number.unsignedLongLongValue()) : std::nullopt;
}

std::optional<PropertyListGraph> PropertyListGraph::of(const Value& root) {
    PropertyListGraph graph;
    return graph.add(root) ? std::optional(std::move(graph)) : std::nullopt;
}

std::size_t PropertyListGraph::append(Node node, std::uint64_t size) {
    nodes_.push_back(node);
    unfoldedSizes_.push_back(size + 1);
    heights_.push_back(0);
    return nodes_.size() - 1;
}

std::optional<std::size_t> PropertyListGraph::add(const Value& value) {
    if (value.isString())
        return addText(value.string(), &value);
    if (archiveReference(value))
        return append({&value, {}}, 0);
    if (value.isArray() || value.isDictionary())
        return addContainer(value);
    if (!isAllowedLeaf(value))
        return std::nullopt;
    return append({&value, {}}, value.bytes().size());
}

std::optional<std::size_t> PropertyListGraph::addText(std::string_view text, const Value* value) {
    if (const auto known = texts_.find(text); known != texts_.end())
        return known->second;
    if (!isValidUTF8(text))
        return std::nullopt;
    const std::size_t node = append({value, text}, text.size());
    texts_.emplace(text, node);
    return node;
}

std::optional<std::size_t> PropertyListGraph::addContainer(const Value& value) {
    const Value* first = identity(value);
    if (first != nullptr) {
        const auto [known, isNew] = containers_.try_emplace(first);
        if (!isNew)
            return known->second;
    }
    if (depth_ == maximumPropertyListDepth)
        return std::nullopt;
    const std::size_t node = append({&value, {}, references_.size()}, 0);
    heights_[node] = 1;
    ++depth_;
    const bool added = addItems(value, node);
    --depth_;
    if (!added)
        return std::nullopt;
    if (first != nullptr)
        containers_[first] = node;
    return node;
}

bool PropertyListGraph::addItems(const Value& container, std::size_t node) {
    const std::size_t count = itemCount(container);
    const std::size_t keys = container.isDictionary() ? count : 0;
    nodes_[node].referenceCount = keys + count;
    references_.resize(references_.size() + keys + count);
    std::size_t slot = 0;
    if (container.isArray()) {
        return std::ranges::all_of(
            container.array(), [&](const Value& item) { return refer(node, slot++, add(item)); });
    }
    for (const auto [key, item] : container.dictionary()) {
        if (!refer(node, slot, addText(key, nullptr)) || !refer(node, keys + slot, add(item)))
            return false;
        ++slot;
    }
    return true;
}

bool PropertyListGraph::refer(std::size_t parent, std::size_t slot,
                              std::optional<std::size_t> child) {
    if (!child)
        return false;
    references_[nodes_[parent].firstReference + slot] = *child;
    unfoldedSizes_[parent] = saturatingSum(unfoldedSizes_[parent], unfoldedSizes_[*child]);
    heights_[parent] = std::max(heights_[parent], heights_[*child] + 1);
    return depth_ + heights_[parent] - 1 <= maximumPropertyListDepth;
}

}  // namespace zn
