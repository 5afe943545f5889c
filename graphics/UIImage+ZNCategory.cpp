#include "zarnic/UIImage+ZNCategory.h"

#include <array>
#include <cmath>

#include "platform/drawing/images/ImageContext.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {

namespace {

/// Red, green, blue and alpha bytes, premultiplied: the alpha last, 32-bit words big-endian.
constexpr std::uint32_t rgbaBytes = 0x4001;

/// The image over the whole of a new one of this size, at one pixel a point.
Ref<UIImage> redrawn(const Ref<UIImage>& image, Size size) {
    ImageContext context(size);
    if (context.context())
        image->drawInRect({{}, size});
    return context.takeImage();
}

/// Where the image lies when it fits into the target, centred; in whole points.
Rect fittedRect(Size image, Size target) {
    const double widthFactor = target.width / image.width;
    const double heightFactor = target.height / image.height;
    const double factor = widthFactor < heightFactor ? widthFactor : heightFactor;
    const double width = image.width * factor;
    const double height = image.height * factor;
    Point origin;
    if (heightFactor > widthFactor)
        origin.y = (target.height - height) * 0.5;
    else if (widthFactor > heightFactor)
        origin.x = (target.width - width) * 0.5;
    return {std::trunc(origin.x), std::trunc(origin.y), std::trunc(width), std::trunc(height)};
}

double perceivedBrightness(std::uint32_t pixel) {
    const double red = pixel >> 16 & 0xFF, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
    return std::sqrt(0.299 * (red * red) + 0.587 * (green * green) + 0.114 * (blue * blue));
}

}  // namespace

Ref<UIImage> ZN_ImageWithColor(const Ref<UIColor>& color, Size size) {
    ImageContext context(size);
    if (context.context() && color) {
        context.context()->setFillColor(color->cgColor());
        context.context()->fillRect({{}, size});
    }
    return context.takeImage();
}

Ref<UIImage> ZN_ImageNamed(std::string_view name, const Ref<UIColor>& tintColor) {
    return zn_ImageWithTintColor(UIImage::imageNamed(name), tintColor, CGBlendMode::Normal);
}

Ref<UIImage> zn_ImageWithTintColor(const Ref<UIImage>& image, const Ref<UIColor>& tintColor,
                                   CGBlendMode blendMode) {
    if (!image)
        return nullptr;
    const Rect whole{{}, image->size()};
    ImageContext context(whole.size, 0);
    if (!context.context())
        return nullptr;
    if (tintColor)
        tintColor->setFill();
    UIRectFill(whole);
    // On purpose the mode is only compared, never drawn with.
    if (blendMode != CGBlendMode::DestinationIn)
        image->drawInRect(whole, CGBlendMode::DestinationIn, 1.0);
    return context.takeImage();
}

Ref<UIColor> zn_ColorAtPixelPoint(const Ref<UIImage>& image, Point point, double alpha) {
    if (!image || !Rect({}, image->size()).contains(point))
        return nullptr;
    const double width = std::trunc(image->size().width);
    const double height = std::trunc(image->size().height);
    std::array<std::uint8_t, 4> pixel{};
    const auto context =
        CGContext::bitmap(pixel.data(), 1, 1, 8, pixel.size(), CGColorSpace::DeviceRGB, rgbaBytes);
    context->setBlendMode(CGBlendMode::Copy);
    // On purpose one row too high: y grows upward here, and the row of the point would need one
    // more.
    context->translate(-std::trunc(point.x), std::trunc(point.y) - height);
    context->drawImage({0, 0, width, height}, image->cgImage());
    context->flush();
    return UIColor::colorWithRed(pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, alpha);
}

bool zn_isBlackColor(const Ref<UIImage>& image) {
    constexpr Size miniature{9, 16};
    constexpr double darkest = 65.0;
    const auto small = zn_imageByScalingToSize(image, miniature);
    if (!small)
        return false;
    int total = 0;
    for (const std::uint32_t pixel : small->cgImage()->pixels())
        // On purpose cut after each addition.
        total = static_cast<int>(total + perceivedBrightness(pixel));
    return total / (miniature.width * miniature.height) < darkest;
}

Ref<UIImage> zn_imageByScalingToSize(const Ref<UIImage>& image, Size targetSize) {
    if (!image)
        return nullptr;
    ImageContext context(targetSize);
    if (context.context())
        image->drawInRect(image->size() == targetSize ? Rect({}, targetSize)
                                                      : fittedRect(image->size(), targetSize));
    const auto result = context.takeImage();
    if (!result)
        NSLog("could not scale image");
    return result;
}

Ref<UIImage> zn_imageToScale(const Ref<UIImage>& image, float factor) {
    if (!image)
        return nullptr;
    const double scale = factor;
    return redrawn(image, {image->size().width * scale, image->size().height * scale});
}

Ref<UIImage> zn_imageAutoSize(const Ref<UIImage>& image, Size limit) {
    if (!image)
        return nullptr;
    Size size = image->size();
    // On purpose it is the shorter side that is limited.
    if (size.height > size.width) {
        if (size.width > limit.width)
            size = {limit.width, size.height / size.width * limit.width};
    } else if (size.height > limit.height) {
        size = {size.width / size.height * limit.height, limit.height};
    }
    return redrawn(image, size);
}

}  // namespace zn
