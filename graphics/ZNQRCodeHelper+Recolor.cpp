#include <cmath>
#include <cstdlib>

#include "zarnic/UIColor+ZNCategory.h"
#include "zarnic/ZNQRCodeHelper.h"

void ProviderReleaseData(void*, const void* data, std::size_t) {
    std::free(const_cast<void*>(data));
}

namespace zn {

namespace {

/// The colour's components, cut to bytes, without its alpha.
std::uint32_t opaqueWord(const Ref<UIColor>& color) {
    const auto byte = [](std::int32_t component) {
        return static_cast<std::uint32_t>(component) & 0xFF;
    };
    return 0xFF000000 | byte(zn_GetRed(color)) << 16 | byte(zn_GetGreen(color)) << 8 |
           byte(zn_GetBlue(color));
}

/// The image's pixels over black, one a point, as seen. Alpha means nothing.
Ref<CGImage> pixelsOverBlack(const Ref<UIImage>& image) {
    const auto& own = image->cgImage();
    if (own && image->scale() == 1 && image->imageOrientation() == UIImageOrientation::Up)
        return own;
    const Size size{std::trunc(image->size().width), std::trunc(image->size().height)};
    const auto context = CGContext::image(size, true, 1);
    if (!context)
        return nullptr;
    UIGraphicsPushContext(context);
    image->drawInRect({{}, size});
    UIGraphicsPopContext();
    return context->makeImage();
}

}  // namespace

Ref<UIImage> ZNQRCodeHelper::CodeChangeColorWithImage(const Ref<UIImage>& image,
                                                      const Ref<UIColor>& onColor,
                                                      const Ref<UIColor>& offColor) {
    constexpr std::uint32_t colors = 0xFFFFFF;
    // Compared as one number, so that on purpose red decides before green and green before blue.
    constexpr std::int32_t threshold = 0x999999;
    const auto picture = image ? pixelsOverBlack(image) : nullptr;
    if (!picture)
        return nullptr;
    const std::uint32_t on = opaqueWord(onColor), off = opaqueWord(offColor);
    const std::size_t count = picture->pixels().size();
    const std::uint32_t* from = picture->pixels().data();
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(count);
    std::uint32_t* to = pixels.get();
    for (std::size_t i = 0; i < count; ++i)
        to[i] = static_cast<std::int32_t>(from[i] & colors) < threshold ? on : off;
    return UIImage::imageWithCGImage(
        make<CGImage>(picture->width(), picture->height(), std::move(pixels)));
}

}  // namespace zn
