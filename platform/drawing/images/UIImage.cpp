#include "zarnic/platform/drawing/UIImage.h"

#include <filesystem>
#include <fstream>

#include "platform/drawing/codecs/ImageCodec.h"
#include "platform/drawing/context/ContextState.h"
#include "platform/drawing/context/CurrentContext.h"

namespace zn {

namespace {

/// Turned by a quarter: what is seen is as wide as the pixels are high.
bool swapsSides(UIImageOrientation orientation) {
    return orientation == UIImageOrientation::Left || orientation == UIImageOrientation::Right ||
           orientation == UIImageOrientation::LeftMirrored ||
           orientation == UIImageOrientation::RightMirrored;
}

/// From a unit square that holds the pixels upright to one that shows them turned, y downward.
AffineTransform turned(UIImageOrientation orientation) {
    switch (orientation) {
        case UIImageOrientation::Up:
            break;
        case UIImageOrientation::Down:
            return {-1, 0, 0, -1, 1, 1};
        case UIImageOrientation::Left:
            return {0, -1, 1, 0, 0, 1};
        case UIImageOrientation::Right:
            return {0, 1, -1, 0, 1, 0};
        case UIImageOrientation::UpMirrored:
            return {-1, 0, 0, 1, 1, 0};
        case UIImageOrientation::DownMirrored:
            return {1, 0, 0, -1, 0, 1};
        case UIImageOrientation::LeftMirrored:
            return {0, 1, 1, 0, 0, 0};
        case UIImageOrientation::RightMirrored:
            return {0, -1, -1, 0, 1, 1};
    }
    return {};
}

/// `picture@2x.png` holds two pixels a point.
double scaleOfFile(const std::filesystem::path& file) {
    const std::string name = file.stem().string();
    const std::size_t length = name.size();
    if (length < 3 || name[length - 3] != '@' || name[length - 1] != 'x')
        return 1;
    const char digit = name[length - 2];
    return digit >= '1' && digit <= '9' ? digit - '0' : 1;
}

}  // namespace

UIImage::UIImage(Ref<CGImage> image, double scale, UIImageOrientation orientation)
    : image_(std::move(image)), scale_(scale > 0 ? scale : 1), orientation_(orientation) {}

UIImage::~UIImage() = default;

Ref<UIImage> UIImage::imageWithData(std::span<const std::byte> bytes, double scale) {
    const auto decoded = decodeImage(bytes);
    return decoded ? imageWithCGImage(decoded->image, scale, decoded->orientation) : nullptr;
}

Ref<UIImage> UIImage::imageWithContentsOfFile(std::string_view path) {
    // A folder or a pipe would throw or wait for ever.
    const std::filesystem::path file(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        return nullptr;
    std::ifstream stream(file, std::ios::binary);
    const std::uintmax_t length = std::filesystem::file_size(file, error);
    // More than any picture needs: twice its widest pixels.
    constexpr std::uintmax_t mostBytesPerPixel = 16;
    if (error || !stream || length / mostBytesPerPixel > largestPixelCount())
        return nullptr;
    std::vector<char> content(length);
    stream.read(content.data(), static_cast<std::streamsize>(length));
    content.resize(static_cast<std::size_t>(stream.gcount()));
    return imageWithData(std::as_bytes(std::span(content)), scaleOfFile(file));
}

Ref<UIImage> UIImage::imageWithCGImage(const Ref<CGImage>& image, double scale,
                                       UIImageOrientation orientation) {
    return image ? make<UIImage>(image, scale, orientation) : nullptr;
}

Size UIImage::size() const {
    if (!image_)
        return {};
    const double width = static_cast<double>(image_->width()) / scale_;
    const double height = static_cast<double>(image_->height()) / scale_;
    return swapsSides(orientation_) ? Size{height, width} : Size{width, height};
}

std::int64_t UIImage::jpegByteCount() const {
    std::call_once(jpegCounted_, [this] {
        if (image_)
            jpegByteCount_ = static_cast<std::int64_t>(jpegLength(*image_, orientation_, 1));
    });
    return jpegByteCount_;
}

void UIImage::drawAtPoint(Point point) const {
    drawInRect({point, size()});
}

void UIImage::drawInRect(const Rect& rect) const {
    drawInRect(rect, CGBlendMode::Normal, 1);
}

void UIImage::drawInRect(const Rect& rect, CGBlendMode mode, double alpha) const {
    const auto context = currentContextOrLog("UIImage drawInRect");
    if (!context || rect.isEmpty())
        return;
    context->saveGState();
    context->setBlendMode(mode);
    context->setAlpha(context->state().graphics.alpha * alpha);
    if (orientation_ == UIImageOrientation::Up) {
        context->drawImageUpright(rect, image_);
    } else {
        context->translate(rect.minX(), rect.minY());
        context->scale(rect.width(), rect.height());
        context->concat(turned(orientation_));
        context->drawImageUpright({0, 0, 1, 1}, image_);
    }
    context->restoreGState();
}

std::optional<std::vector<std::byte>> UIImagePNGRepresentation(const Ref<UIImage>& image) {
    if (!image || !image->cgImage())
        return std::nullopt;
    return encodePng(*image->cgImage());
}

std::optional<std::vector<std::byte>> UIImageJPEGRepresentation(const Ref<UIImage>& image,
                                                                double quality) {
    if (!image || !image->cgImage())
        return std::nullopt;
    return encodeJpeg(*image->cgImage(), image->imageOrientation(), quality);
}

}  // namespace zn
