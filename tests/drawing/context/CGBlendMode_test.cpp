#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>

#include "tests/drawing/Pixels.h"
#include "zarnic/platform/drawing/UIImage.h"

namespace zn {
namespace {

constexpr int modeCount = 28;

/// Premultiplied components between 0 and 1.
struct Pixel {
    double red, green, blue, alpha;
};

Pixel premultiplied(const CGColor& color) {
    return {color.red * color.alpha, color.green * color.alpha, color.blue * color.alpha,
            color.alpha};
}

void expectNear(std::uint32_t found, const Pixel& wanted, double tolerance,
                const std::string& hint) {
    const auto part = [found](int shift) { return static_cast<double>(found >> shift & 0xFF); };
    EXPECT_NEAR(part(24), wanted.alpha * 255, tolerance) << hint << " alpha";
    EXPECT_NEAR(part(16), wanted.red * 255, tolerance) << hint << " red";
    EXPECT_NEAR(part(8), wanted.green * 255, tolerance) << hint << " green";
    EXPECT_NEAR(part(0), wanted.blue * 255, tolerance) << hint << " blue";
}

Pixel combine(const Pixel& source, const Pixel& destination,
              const std::function<double(double, double)>& component) {
    return {component(source.red, destination.red), component(source.green, destination.green),
            component(source.blue, destination.blue), component(source.alpha, destination.alpha)};
}

const CGColor destinationColor{0.8, 0.25, 0.4, 0.6};
const CGColor sourceColor{0.3, 0.9, 0.55, 0.7};

Ref<CGContext> destinationPicture() {
    const auto context = CGContext::image({30, 30}, false, 1);
    context->setFillColor(destinationColor);
    context->fillRect({0, 0, 30, 30});
    return context;
}

/// The same source as a filled rectangle, a broad line and an image, all over (10, 10) to (20, 20).
void drawSource(const Ref<CGContext>& context, int way) {
    context->setFillColor(sourceColor);
    context->setStrokeColor(sourceColor);
    context->setLineWidth(10);
    if (way == 0) {
        context->fillRect({10, 10, 10, 10});
    } else if (way == 1) {
        context->moveTo({10, 15});
        context->addLineTo({20, 15});
        context->drawPath(CGPathDrawingMode::Stroke);
    } else {
        const auto source = CGContext::image({1, 1}, false, 1);
        source->setFillColor(sourceColor);
        source->fillRect({0, 0, 1, 1});
        context->drawImage({10, 10, 10, 10}, source->makeImage());
    }
}

TEST(CGBlendMode, porterDuffModesFollowTheirFactorsForFillsStrokesAndImages) {
    // Source and destination factors, by Porter and Duff, "Compositing Digital Images", 1984.
    const double s = sourceColor.alpha;
    const double d = destinationColor.alpha;
    const std::map<CGBlendMode, std::pair<double, double>> factors{
        {CGBlendMode::Normal, {1, 1 - s}},
        {CGBlendMode::Clear, {0, 0}},
        {CGBlendMode::Copy, {1, 0}},
        {CGBlendMode::SourceIn, {d, 0}},
        {CGBlendMode::SourceOut, {1 - d, 0}},
        {CGBlendMode::SourceAtop, {d, 1 - s}},
        {CGBlendMode::DestinationOver, {1 - d, 1}},
        {CGBlendMode::DestinationIn, {0, s}},
        {CGBlendMode::DestinationOut, {0, 1 - s}},
        {CGBlendMode::DestinationAtop, {1 - d, s}},
        {CGBlendMode::XOR, {1 - d, 1 - s}},
        {CGBlendMode::PlusLighter, {1, 1}},
    };
    for (const auto& [mode, factor] : factors) {
        for (int way = 0; way < 3; ++way) {
            const auto context = destinationPicture();
            context->setBlendMode(mode);
            drawSource(context, way);
            const auto wanted =
                combine(premultiplied(sourceColor), premultiplied(destinationColor),
                        [f = factor](double source, double destination) {
                            return std::min(1.0, source * f.first + destination * f.second);
                        });
            expectNear(
                context->makeImage()->pixels()[15 * 30 + 15], wanted, 2,
                "mode " + std::to_string(static_cast<int>(mode)) + " way " + std::to_string(way));
        }
    }
}

TEST(CGBlendMode, separableModesFollowTheirFormulas) {
    // W3C, "Compositing and Blending Level 1", section 9.1: backdrop b, source s, both straight.
    const auto multiply = [](double b, double s) { return b * s; };
    const auto screen = [](double b, double s) { return b + s - b * s; };
    const auto hardLight = [&](double b, double s) {
        return s <= 0.5 ? multiply(b, 2 * s) : screen(b, 2 * s - 1);
    };
    const std::map<CGBlendMode, std::function<double(double, double)>> formulas{
        {CGBlendMode::Multiply, multiply},
        {CGBlendMode::Screen, screen},
        {CGBlendMode::Overlay, [&](double b, double s) { return hardLight(s, b); }},
        {CGBlendMode::Darken, [](double b, double s) { return std::min(b, s); }},
        {CGBlendMode::Lighten, [](double b, double s) { return std::max(b, s); }},
        {CGBlendMode::ColorDodge, [](double b, double s) { return std::min(1.0, b / (1 - s)); }},
        {CGBlendMode::ColorBurn, [](double b, double s) { return 1 - std::min(1.0, (1 - b) / s); }},
        {CGBlendMode::HardLight, hardLight},
        {CGBlendMode::SoftLight,
         [](double b, double s) {
             const double curve = b <= 0.25 ? ((16 * b - 12) * b + 4) * b : std::sqrt(b);
             return s <= 0.5 ? b - (1 - 2 * s) * b * (1 - b) : b + (2 * s - 1) * (curve - b);
         }},
        {CGBlendMode::Difference, [](double b, double s) { return std::abs(b - s); }},
        {CGBlendMode::Exclusion, [](double b, double s) { return b + s - 2 * b * s; }},
    };
    const CGColor& s = sourceColor;
    const CGColor& d = destinationColor;
    for (const auto& [mode, blend] : formulas) {
        const auto mixed = [&s, &d, &formula = blend](double b, double source) {
            return (1 - d.alpha) * s.alpha * source + (1 - s.alpha) * d.alpha * b +
                   s.alpha * d.alpha * formula(b, source);
        };
        const auto context = destinationPicture();
        context->setBlendMode(mode);
        drawSource(context, 0);
        expectNear(context->makeImage()->pixels()[15 * 30 + 15],
                   {mixed(d.red, s.red), mixed(d.green, s.green), mixed(d.blue, s.blue),
                    s.alpha + d.alpha - s.alpha * d.alpha},
                   3, "mode " + std::to_string(static_cast<int>(mode)));
    }
}

TEST(CGBlendMode, plusDarkerAddsUpDarkness) {
    const auto context = CGContext::image({2, 1}, false, 1);
    context->setFillColor({0.9, 0.6, 0.2, 1});
    context->fillRect({0, 0, 1, 1});
    context->setBlendMode(CGBlendMode::PlusDarker);
    context->setFillColor({0.7, 0.6, 0.2, 1});
    context->fillRect({0, 0, 2, 1});
    expectNear(context->makeImage()->pixels()[0], {0.6, 0.2, 0, 1}, 1, "over a colour");
    expectNear(context->makeImage()->pixels()[1], {0.7, 0.6, 0.2, 1}, 1, "over nothing");
}

TEST(CGBlendMode, hueSaturationColourAndLuminosityTakeTheirPartFromTheSource) {
    const auto result = [](CGBlendMode mode, const CGColor& below, const CGColor& above) {
        const auto context = CGContext::image({1, 1}, true, 1);
        context->setFillColor(below);
        context->fillRect({0, 0, 1, 1});
        context->setBlendMode(mode);
        context->setFillColor(above);
        context->fillRect({0, 0, 1, 1});
        return context->makeImage()->pixels()[0];
    };
    const CGColor gray{0.5, 0.5, 0.5, 1};
    // A grey has no saturation to keep a hue with, and none to give.
    expectNear(result(CGBlendMode::Hue, gray, red), {0.5, 0.5, 0.5, 1}, 2, "hue");
    expectNear(result(CGBlendMode::Saturation, red, gray), {0.3, 0.3, 0.3, 1}, 2, "saturation");
    expectNear(result(CGBlendMode::Color, red, gray), {0.3, 0.3, 0.3, 1}, 2, "colour");
    expectNear(result(CGBlendMode::Luminosity, gray, red), {0.3, 0.3, 0.3, 1}, 2, "luminosity");
}

TEST(CGBlendMode, everyModeStaysInsideItsShapeAndItsClip) {
    for (int mode = 0; mode < modeCount; ++mode) {
        for (int way = 0; way < 3; ++way) {
            const auto context = destinationPicture();
            const std::string before = pixelAt(context, 5, 5);
            context->setBlendMode(static_cast<CGBlendMode>(mode));
            context->clipToRect({0, 0, 15, 30});
            drawSource(context, way);
            EXPECT_EQ(pixelAt(context, 5, 5), before) << "mode " << mode << " way " << way;
            EXPECT_EQ(pixelAt(context, 17, 15), before) << "mode " << mode << " way " << way;
        }
    }
}

TEST(CGBlendMode, opaquePicturesStayOpaqueInEveryMode) {
    for (int mode = 0; mode < modeCount; ++mode) {
        const auto context = CGContext::image({30, 30}, true, 1);
        context->setBlendMode(static_cast<CGBlendMode>(mode));
        for (int way = 0; way < 3; ++way)
            drawSource(context, way);
        EXPECT_TRUE(context->makeImage()->opaque()) << "mode " << mode;
    }
}

TEST(UIRectFill, replacesWhatIsThere) {
    UIGraphicsBeginImageContext({4, 4});
    UIColor::redColor()->setFill();
    UIRectFill({0, 0, 4, 4});
    UIColor::colorWithWhite(1, 0.5)->setFill();
    UIRectFill({0, 0, 2, 4});
    const auto image = UIGraphicsGetImageFromCurrentImageContext()->cgImage();
    UIGraphicsEndImageContext();
    EXPECT_EQ(pixelAt(image, 0, 0), "80808080");
    EXPECT_EQ(pixelAt(image, 3, 3), "ffff0000");
}

}  // namespace
}  // namespace zn
