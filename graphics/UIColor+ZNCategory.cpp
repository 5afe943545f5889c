#include "zarnic/UIColor+ZNCategory.h"

#include <array>
#include <limits>
#include <random>

#include "zarnic/platform/drawing/CGContext.h"

namespace zn {

namespace {

CGColor componentsOf(const Ref<UIColor>& color) {
    return color ? color->cgColor() : CGColor();
}

/// Between 0 and 255 by cutting; components outside 0 to 1 give what they give, within 32 bits.
std::int32_t byteOf(double component) {
    constexpr double limit = std::numeric_limits<std::int32_t>::max();
    const double product = component * 255.0;
    if (!(product > -limit))
        return product <= -limit ? -std::numeric_limits<std::int32_t>::max() : 0;
    return product < limit ? static_cast<std::int32_t>(product)
                           : std::numeric_limits<std::int32_t>::max();
}

/// Its lowest bits move up; what does not fit into 32 is lost.
std::uint32_t shifted(double component, int bits) {
    return static_cast<std::uint32_t>(byteOf(component)) << bits;
}

double componentOf(std::uint32_t byte) {
    return static_cast<float>(byte) / 255.0F;
}

}  // namespace

Ref<UIColor> ZN_GetArc4randomColor(float alpha) {
    std::random_device random;
    const auto draw = [&] { return componentOf(random() & 0xFF); };
    const double red = draw();
    const double green = draw();
    const double blue = draw();
    return UIColor::colorWithRed(red, green, blue, alpha);
}

std::int32_t ZN_GetIntValueFromColor(const Ref<UIColor>& color) {
    const CGColor parts = componentsOf(color);
    return static_cast<std::int32_t>(shifted(parts.red, 16) + shifted(parts.green, 8) +
                                     shifted(parts.blue, 0));
}

double ZN_GetDoubleValueFromColor(const Ref<UIColor>& color) {
    return static_cast<double>(ZN_GetIntValueFromColor(color)) + zn_GetAlpha(color);
}

std::string ZN_HexStringWithColor(const Ref<UIColor>& color, bool hasAlpha) {
    constexpr int leastDigits = 6;
    const CGColor parts = componentsOf(color);
    std::uint32_t value = shifted(parts.red, 16) | shifted(parts.green, 8) | shifted(parts.blue, 0);
    if (hasAlpha)
        value |= shifted(parts.alpha, 24);
    std::array<char, 8> digits{};
    std::size_t first = digits.size();
    for (int written = 0; written < leastDigits || value != 0; ++written, value >>= 4)
        digits[--first] = "0123456789abcdef"[value & 0xF];
    return {digits.data() + first, digits.size() - first};
}

bool ZN_IsLightColor(const Ref<UIColor>& color) {
    std::array<double, 3> components{};
    ZN_GetRGBComponents(components, color);
    return components[0] + components[1] + components[2] >= 382.0;
}

void ZN_GetRGBComponents(std::span<double, 3> components, const Ref<UIColor>& color) {
    constexpr std::uint32_t premultipliedLast = 1;
    std::array<std::uint8_t, 4> pixel{};
    const auto context = CGContext::bitmap(pixel.data(), 1, 1, 8, pixel.size(),
                                           CGColorSpace::DeviceRGB, premultipliedLast);
    context->setFillColor(componentsOf(color));
    context->fillRect({0, 0, 1, 1});
    context->flush();
    for (std::size_t i = 0; i < components.size(); ++i)
        components[i] = pixel[i];
}

std::int32_t zn_GetRed(const Ref<UIColor>& color) {
    return byteOf(componentsOf(color).red);
}

std::int32_t zn_GetGreen(const Ref<UIColor>& color) {
    return byteOf(componentsOf(color).green);
}

std::int32_t zn_GetBlue(const Ref<UIColor>& color) {
    return byteOf(componentsOf(color).blue);
}

double zn_GetAlpha(const Ref<UIColor>& color) {
    return componentsOf(color).alpha;
}

}  // namespace zn
