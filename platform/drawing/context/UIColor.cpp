#include "zarnic/platform/drawing/UIColor.h"

#include <cstdio>
#include <functional>

#include "platform/drawing/context/CurrentContext.h"

namespace zn {

namespace {

Ref<UIColor> makeGray(double white, double alpha = 1) {
    return make<UIColor>(CGColor{white, white, white, alpha, CGColor::Space::Gray});
}

Ref<UIColor> makeRGB(double red, double green, double blue) {
    return make<UIColor>(CGColor{red, green, blue, 1, CGColor::Space::RGB});
}

/// The named colours, made once and never destroyed.
struct Palette {
    const Ref<UIColor> clear = makeGray(0, 0);
    const Ref<UIColor> black = makeGray(0);
    const Ref<UIColor> darkGray = makeGray(1.0 / 3);
    const Ref<UIColor> gray = makeGray(0.5);
    const Ref<UIColor> lightGray = makeGray(2.0 / 3);
    const Ref<UIColor> white = makeGray(1);
    const Ref<UIColor> red = makeRGB(1, 0, 0);
    const Ref<UIColor> green = makeRGB(0, 1, 0);
    const Ref<UIColor> blue = makeRGB(0, 0, 1);
    const Ref<UIColor> cyan = makeRGB(0, 1, 1);
    const Ref<UIColor> magenta = makeRGB(1, 0, 1);
    const Ref<UIColor> yellow = makeRGB(1, 1, 0);
    const Ref<UIColor> orange = makeRGB(1, 0.5, 0);
    const Ref<UIColor> purple = makeRGB(0.5, 0, 0.5);
    const Ref<UIColor> brown = makeRGB(0.6, 0.4, 0.2);
};

const Palette& palette() {
    static const Palette& shared = *new Palette;
    return shared;
}

}  // namespace

UIColor::UIColor(CGColor color) : color_(color) {
    // Minus zero would print and hash apart from zero, though it compares equal.
    for (double* component : {&color_.red, &color_.green, &color_.blue, &color_.alpha})
        *component += 0.0;
}

Ref<UIColor> UIColor::colorWithRed(double red, double green, double blue, double alpha) {
    return make<UIColor>(CGColor{red, green, blue, alpha, CGColor::Space::RGB});
}

Ref<UIColor> UIColor::colorWithWhite(double white, double alpha) {
    return makeGray(white, alpha);
}

Ref<UIColor> UIColor::clearColor() {
    return palette().clear;
}

Ref<UIColor> UIColor::blackColor() {
    return palette().black;
}

Ref<UIColor> UIColor::darkGrayColor() {
    return palette().darkGray;
}

Ref<UIColor> UIColor::grayColor() {
    return palette().gray;
}

Ref<UIColor> UIColor::lightGrayColor() {
    return palette().lightGray;
}

Ref<UIColor> UIColor::whiteColor() {
    return palette().white;
}

Ref<UIColor> UIColor::redColor() {
    return palette().red;
}

Ref<UIColor> UIColor::greenColor() {
    return palette().green;
}

Ref<UIColor> UIColor::blueColor() {
    return palette().blue;
}

Ref<UIColor> UIColor::cyanColor() {
    return palette().cyan;
}

Ref<UIColor> UIColor::magentaColor() {
    return palette().magenta;
}

Ref<UIColor> UIColor::yellowColor() {
    return palette().yellow;
}

Ref<UIColor> UIColor::orangeColor() {
    return palette().orange;
}

Ref<UIColor> UIColor::purpleColor() {
    return palette().purple;
}

Ref<UIColor> UIColor::brownColor() {
    return palette().brown;
}

Ref<UIColor> UIColor::colorWithAlphaComponent(double alpha) const {
    CGColor color = color_;
    color.alpha = alpha;
    return make<UIColor>(color);
}

void UIColor::set() const {
    if (const auto context = currentContextOrLog("UIColor set")) {
        context->setFillColor(color_);
        context->setStrokeColor(color_);
    }
}

void UIColor::setFill() const {
    if (const auto context = currentContextOrLog("UIColor setFill"))
        context->setFillColor(color_);
}

void UIColor::setStroke() const {
    if (const auto context = currentContextOrLog("UIColor setStroke"))
        context->setStrokeColor(color_);
}

bool UIColor::isEqual(const NSObject& other) const {
    const auto* color = dynamic_cast<const UIColor*>(&other);
    return color != nullptr && color->color_ == color_;
}

std::size_t UIColor::hash() const {
    std::size_t result = static_cast<std::size_t>(color_.space);
    for (const double component : {color_.red, color_.green, color_.blue, color_.alpha})
        result = result * 31 + std::hash<double>{}(component);
    return result;
}

std::string UIColor::description() const {
    char text[128];
    if (color_.space == CGColor::Space::Gray)
        std::snprintf(text, sizeof text, "UIExtendedGrayColorSpace %g %g", color_.red,
                      color_.alpha);
    else
        std::snprintf(text, sizeof text, "UIExtendedSRGBColorSpace %g %g %g %g", color_.red,
                      color_.green, color_.blue, color_.alpha);
    return text;
}

}  // namespace zn
