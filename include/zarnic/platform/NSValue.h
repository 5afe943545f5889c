#pragma once

#include <string>
#include <variant>

#include "zarnic/platform/Class.h"
#include "zarnic/platform/Geometry.h"

namespace zn {

/// A geometric structure as an object, so that a `Value` can hold it. Asking for another kind than
/// the one inside gives an empty structure (the identity for a transform).
class ZN_EXPORT NSValue final : public NSObject {
    ZN_OBJECT(NSValue, NSObject)
public:
    using Structure = std::variant<Point, Size, Rect, EdgeInsets, AffineTransform>;
    explicit NSValue(Structure structure);

    static Ref<NSValue> valueWithCGPoint(Point point);
    static Ref<NSValue> valueWithCGSize(Size size);
    static Ref<NSValue> valueWithCGRect(const Rect& rect);
    static Ref<NSValue> valueWithUIEdgeInsets(const EdgeInsets& insets);
    static Ref<NSValue> valueWithCGAffineTransform(const AffineTransform& transform);

    Point pointValue() const;
    Size sizeValue() const;
    Rect rectValue() const;
    EdgeInsets edgeInsetsValue() const;
    AffineTransform affineTransformValue() const;

    /// Of the same kind, with the same numbers.
    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override;
    std::string description() const override;

private:
    Structure structure_;
};

}  // namespace zn
