#include "zarnic/ZNQRCodeHelper.h"

#include <algorithm>

#include "platform/drawing/context/NearestNeighbor.h"
#include "platform/drawing/filters/FalseColor.h"
#include "platform/drawing/images/ImageContext.h"
#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/drawing/CIFilter.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {

namespace {

Value bytesOf(std::string_view text) {
    return Value::data(std::as_bytes(std::span(text)));
}

/// Cut to a whole number that a picture may have on a side; 0 for what is none.
std::size_t wholePixels(double length) {
    constexpr double most = 1e6;
    return length > 0 ? static_cast<std::size_t>(std::min(length, most)) : 0;
}

}  // namespace

Ref<ZNQRCodeHelper> ZNQRCodeHelper::SharedHelper() {
    static const Ref<ZNQRCodeHelper>& shared = *new Ref<ZNQRCodeHelper>(make<ZNQRCodeHelper>());
    return shared;
}

Ref<UIImage> ZNQRCodeHelper::CodeImageWithType(std::int64_t type, const Value& content, Size size,
                                               const Ref<UIColor>& onColor,
                                               const Ref<UIColor>& offColor) {
    if (!content.isString() || !zn_NotNull(content)) {
        NSLog("ZNQRCodeHelper_无法创建 二维码 & 条形码，content参数有误 ");
        return nullptr;
    }
    Ref<CIImage> code;
    if (type == BarCode) {
        code = BarCodeImageWithContent(content.string());
    } else if (type == QrCode) {
        code = QrCodeImageWithContent(content.string());
        size.height = size.width;
    }
    return CodeFillColorWithImage(code, size, onColor, offColor);
}

Ref<CIImage> ZNQRCodeHelper::QrCodeImageWithContent(std::string_view content) {
    const auto filter = CIFilter::filterWithName("CIQRCodeGenerator");
    filter->setDefaults();
    filter->setValue(bytesOf(content), "inputMessage");
    filter->setValue("H", "inputCorrectionLevel");
    return filter->outputImage();
}

Ref<CIImage> ZNQRCodeHelper::BarCodeImageWithContent(std::string_view content) {
    const auto filter = CIFilter::filterWithName("CICode128BarcodeGenerator");
    filter->setDefaults();
    filter->setValue(bytesOf(content), "inputMessage");
    filter->setValue(0.0, "inputQuietSpace");
    return filter->outputImage();
}

Ref<UIImage> ZNQRCodeHelper::CodeFillColorWithImage(const Ref<CIImage>& image, Size size,
                                                    const Ref<UIColor>& onColor,
                                                    const Ref<UIColor>& offColor) {
    const auto filter = CIFilter::filterWithName("CIFalseColor");
    filter->setValue(image, "inputImage");
    filter->setValue(onColor, "inputColor0");
    filter->setValue(offColor, "inputColor1");
    const auto colored = filter->outputImage();
    if (!colored)
        return ImageContext(size).takeImage();
    return UIImage::imageWithCGImage(
        stretchedSharply(*colored->cgImage(), size.width, size.height));
}

Ref<UIImage> ZNQRCodeHelper::CodeChangeScaleWithImage(const Ref<CIImage>& image, Size size) {
    const Rect extent = image ? image->extent().integral() : Rect();
    const double across = size.width / extent.width();
    const double down = size.height / extent.height();
    const double scale = across < down ? across : down;
    const std::size_t width = wholePixels(scale * extent.width());
    const std::size_t height = wholePixels(scale * extent.height());
    const auto context =
        CGContext::bitmap(nullptr, width, height, 8, 0, CGColorSpace::DeviceGray, 0);
    if (!context)
        return nullptr;
    context->setInterpolationQuality(CGInterpolationQuality::None);
    context->scale(scale, scale);
    context->drawImage(extent, image->cgImage());
    const CGColor black{0, 0, 0, 1}, white{1, 1, 1, 1};
    return UIImage::imageWithCGImage(falseColored(*context->makeImage(), black, white));
}

}  // namespace zn
