#pragma once

#include <memory>
#include <string>

#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// Colour components between 0 and 1 (kept as given outside that range), not premultiplied, with
/// the space they were made in. A default one is clear.
struct CGColor {
    enum class Space { Gray, RGB };

    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;
    Space space = Space::RGB;

    friend bool operator==(const CGColor&, const CGColor&) = default;
};

/// An immutable colour. Named greys are in the grey space and are unequal to RGB colours that look
/// the same.
class ZN_EXPORT UIColor final : public NSObject {
    ZN_OBJECT(UIColor, NSObject)
public:
    explicit UIColor(CGColor color);

    static Ref<UIColor> colorWithRed(double red, double green, double blue, double alpha);
    static Ref<UIColor> colorWithWhite(double white, double alpha);
    static Ref<UIColor> clearColor();
    static Ref<UIColor> blackColor();
    static Ref<UIColor> darkGrayColor();
    static Ref<UIColor> grayColor();
    static Ref<UIColor> lightGrayColor();
    static Ref<UIColor> whiteColor();
    static Ref<UIColor> redColor();
    static Ref<UIColor> greenColor();
    static Ref<UIColor> blueColor();
    static Ref<UIColor> cyanColor();
    static Ref<UIColor> magentaColor();
    static Ref<UIColor> yellowColor();
    static Ref<UIColor> orangeColor();
    static Ref<UIColor> purpleColor();
    static Ref<UIColor> brownColor();

    Ref<UIColor> colorWithAlphaComponent(double alpha) const;
    const CGColor& cgColor() const { return color_; }
    /// Sets fill and stroke, or one of them, of the current graphics context.
    void set() const;
    void setFill() const;
    void setStroke() const;

    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override;
    std::string description() const override;

private:
    CGColor color_;
};

}  // namespace zn
