#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Containers of property lists nest at most so deep, read or written.
inline constexpr std::size_t maximumPropertyListDepth = 512;
/// The number of an archive reference: a dictionary of the one key `CF$UID` with a whole number.
std::optional<std::uint64_t> archiveReference(const Value& value);

/// The distinct objects of a value that is a property list, the root first: each container once
/// however often it is referred to, equal texts once. It points into the value, which must outlive
/// it unchanged.
class PropertyListGraph {
public:
    /// An object without a value is a key.
    struct Node {
        const Value* value;
        std::string_view text;
        std::size_t firstReference = 0;
        /// Of a dictionary the keys' come first, then as many of the values.
        std::size_t referenceCount = 0;
    };

    /// Nothing for a value that holds what no property list may (an absent value, the null object,
    /// objects but dates, dates that are no number, texts that are not UTF-8), that nests too deep
    /// or that holds itself.
    static std::optional<PropertyListGraph> of(const Value& root);

    const std::vector<Node>& nodes() const { return nodes_; }
    const std::vector<std::size_t>& references() const { return references_; }
    /// The bytes in all texts and data plus one for each object, counted as often as they are
    /// referred to; saturates.
    std::uint64_t unfoldedSize() const { return unfoldedSizes_.front(); }

private:
    PropertyListGraph() = default;
    std::optional<std::size_t> add(const Value& value);
    std::optional<std::size_t> addText(std::string_view text, const Value* value);
    std::optional<std::size_t> addContainer(const Value& value);
    bool addItems(const Value& container, std::size_t node);
    bool refer(std::size_t parent, std::size_t slot, std::optional<std::size_t> child);
    std::size_t append(Node node, std::uint64_t size);

    std::vector<Node> nodes_;
    std::vector<std::size_t> references_;
    std::vector<std::uint64_t> unfoldedSizes_;
    /// How many levels of containers each object is.
    std::vector<std::size_t> heights_;
    std::unordered_map<std::string_view, std::size_t> texts_;
    /// Containers by the place of their first item; those that are being added have no node yet.
    std::unordered_map<const Value*, std::optional<std::size_t>> containers_;
    std::size_t depth_ = 0;
};

}  // namespace zn
