#pragma once

#include <string>
#include <variant>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/Boxing.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSCoder.h"

namespace zn {

/// A geometric structure as an object, so that a `Value` can hold it. Asking for another kind than
/// the one inside gives an empty structure (the identity for a transform).
class ZN_EXPORT NSValue final : public NSObject, public NSCoding {
    ZN_OBJECT(NSValue, NSObject)
public:
    using Structure = std::variant<Point, Size, Rect, EdgeInsets, AffineTransform>;
    explicit NSValue(Structure structure = Point());

    static Ref<NSValue> valueWithCGPoint(Point point);
    static Ref<NSValue> valueWithCGSize(Size size);
    static Ref<NSValue> valueWithCGRect(const Rect& rect);
    static Ref<NSValue> valueWithUIEdgeInsets(const EdgeInsets& insets);
    static Ref<NSValue> valueWithCGAffineTransform(const AffineTransform& transform);

    const Structure& structure() const { return structure_; }
    Point pointValue() const;
    Size sizeValue() const;
    Rect rectValue() const;
    EdgeInsets edgeInsetsValue() const;
    AffineTransform affineTransformValue() const;

    /// Of the same kind, with the same numbers.
    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override;
    std::string description() const override;

    void encodeWithCoder(const Ref<NSCoder>& coder) const override;
    /// Throws `NSInvalidUnarchiveOperationException` when the coder has no structure.
    void initWithCoder(const Ref<NSCoder>& coder) override;

private:
    Structure structure_;
};

namespace detail {
/// Structures are published as objects and take objects with the same structure.
template <class T>
struct StructureBoxing {
    static constexpr const char* marks = "";
    static Value box(const T& structure) { return make<NSValue>(structure); }
    static bool unbox(const Value& value, T& structure) {
        const auto object = value.object<NSValue>();
        const T* inside = object ? std::get_if<T>(&object->structure()) : nullptr;
        if (inside != nullptr)
            structure = *inside;
        return inside != nullptr;
    }
};
}  // namespace detail

template <>
struct Boxing<Point> : detail::StructureBoxing<Point> {
    static std::string type() { return "{CGPoint=dd}"; }
};
template <>
struct Boxing<Size> : detail::StructureBoxing<Size> {
    static std::string type() { return "{CGSize=dd}"; }
};
template <>
struct Boxing<Rect> : detail::StructureBoxing<Rect> {
    static std::string type() { return "{CGRect={CGPoint=dd}{CGSize=dd}}"; }
};
template <>
struct Boxing<EdgeInsets> : detail::StructureBoxing<EdgeInsets> {
    static std::string type() { return "{UIEdgeInsets=dddd}"; }
};
template <>
struct Boxing<AffineTransform> : detail::StructureBoxing<AffineTransform> {
    static std::string type() { return "{CGAffineTransform=dddddd}"; }
};

}  // namespace zn
