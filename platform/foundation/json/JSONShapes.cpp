#include "platform/foundation/json/JSONShapes.h"

#include <algorithm>

namespace zn {
namespace {

/// Objects beyond these bounds are tables from names to values rather than records.
constexpr std::size_t maximumKeys = 128;
constexpr std::size_t maximumChildren = 16;
constexpr std::size_t maximumShapes = 2048;

bool isPlain(std::string_view key) {
    return std::ranges::none_of(key, [](char character) {
        return character == '"' || character == '\\' || static_cast<unsigned char>(character) < ' ';
    });
}

}  // namespace

JSONShapes::JSONShapes() : root_(std::make_unique<Shape>(nullptr, "")) {}

JSONShapes::~JSONShapes() = default;

JSONShapes::Shape* JSONShapes::child(Shape& parent, std::string_view key) {
    auto& children = parent.children_;
    auto found = std::ranges::find(children, key, [](const auto& shape) { return shape->key(); });
    if (found == children.end()) {
        if (parent.depth_ == maximumKeys || children.size() == maximumChildren ||
            count_ == maximumShapes)
            return nullptr;
        ++count_;
        children.push_back(std::make_unique<Shape>(&parent, key));
        found = children.end() - 1;
    }
    // What is written with escapes cannot be told from the text itself.
    if (isPlain(key))
        parent.likely_ = found->get();
    return found->get();
}

JSONShapes::Shape::Shape(const Shape* parent, std::string_view key)
    : quoted_(std::string(key) + '"'),
      parent_(parent),
      depth_(parent == nullptr ? 0 : parent->depth_ + 1) {
    char head[8] = {};
    char mask[8] = {};
    const std::size_t length = std::min(quoted_.size(), sizeof head);
    std::copy_n(quoted_.data(), length, head);
    std::fill_n(mask, length, '\xFF');
    head_ = EightBytes::at(head).word;
    headMask_ = EightBytes::at(mask).word;
}

const KeyTable& JSONShapes::Shape::keys() {
    if (keys_)
        return *keys_;
    std::vector<std::string_view> path;
    for (const Shape* shape = this; shape->parent_ != nullptr; shape = shape->parent_)
        path.push_back(shape->key());
    KeyTable table;
    std::for_each(path.rbegin(), path.rend(), [&table](std::string_view key) { table.add(key); });
    return keys_.emplace(std::move(table));
}

bool JSONShapes::Shape::contains(std::string_view key) const noexcept {
    for (const Shape* shape = this; shape->parent_ != nullptr; shape = shape->parent_) {
        if (shape->key() == key)
            return true;
    }
    return false;
}

bool JSONKeys::add(std::string_view key) {
    if (!own_) {
        if (shape_->contains(key))
            return false;
        if (auto* next = shapes_.child(*shape_, key)) {
            shape_ = next;
            return true;
        }
        own_ = shape_->keys();
    }
    const std::size_t before = own_->count();
    return own_->add(key) == before;
}

}  // namespace zn
