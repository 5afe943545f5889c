#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/base/EightBytes.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// The keys that objects of one text have had, as a tree: the path from the root to a shape is the
/// keys of an object in their order. Objects of one shape share one key table, and the key to come
/// is guessed from the object before.
class JSONShapes {
public:
    class Shape;

    JSONShapes();
    ~JSONShapes();
    JSONShapes(const JSONShapes&) = delete;
    JSONShapes& operator=(const JSONShapes&) = delete;

    Shape* root() noexcept { return root_.get(); }

private:
    friend class JSONKeys;
    /// The shape that the key leads to, made if it is new; null when the tree is full.
    Shape* child(Shape& parent, std::string_view key);

    std::unique_ptr<Shape> root_;
    std::size_t count_ = 1;
};

class JSONShapes::Shape {
public:
    Shape(const Shape* parent, std::string_view key);

    /// Whether the text begins with the key and the quotation mark after it.
    bool beginsText(std::string_view text) const noexcept {
        const std::size_t length = quoted_.size();
        if (text.size() < std::max(length, sizeof head_))
            return text.starts_with(quoted_);
        if (((EightBytes::at(text.data()).word ^ head_) & headMask_) != 0)
            return false;
        return length <= 8 || std::memcmp(text.data() + 8, quoted_.data() + 8, length - 8) == 0;
    }

    /// The shape that the last object of this beginning went on to.
    Shape* likely() const noexcept { return likely_; }
    std::string_view key() const noexcept { return {quoted_.data(), quoted_.size() - 1}; }
    const KeyTable& keys();

private:
    friend class JSONShapes;
    friend class JSONKeys;
    bool contains(std::string_view key) const noexcept;

    std::uint64_t head_ = 0;
    std::uint64_t headMask_ = 0;
    Shape* likely_ = nullptr;
    const std::string quoted_;
    const Shape* parent_;
    const std::size_t depth_;
    std::vector<std::unique_ptr<Shape>> children_;
    std::optional<KeyTable> keys_;
};

/// The keys of one object while it is read. What no shape holds (too many keys, or too many kinds
/// of objects) has a table of its own.
class JSONKeys {
public:
    explicit JSONKeys(JSONShapes& shapes) : shapes_(shapes), shape_(shapes.root()) {}

    /// Adds the key that is expected when the text begins with it. The length of the key and the
    /// quotation mark after it, or 0.
    std::size_t addExpected(std::string_view text) noexcept {
        JSONShapes::Shape* expected = shape_->likely();
        if (expected == nullptr || !expected->beginsText(text) || own_)
            return 0;
        shape_ = expected;
        return expected->key().size() + 1;
    }
    /// Whether the key is new; it is added then.
    bool add(std::string_view key);
    const KeyTable& table() { return own_ ? *own_ : shape_->keys(); }

private:
    JSONShapes& shapes_;
    JSONShapes::Shape* shape_;
    std::optional<KeyTable> own_;
};

}  // namespace zn
