#include "platform/layers/painting/PaintCache.h"

#include <cmath>

namespace zn {
namespace {

std::array<double, 5> lookOf(const PaintCache::Request& request) {
    const AffineTransform& m = request.placement.exact;
    return {m.a, m.b, m.c, m.d, request.detail};
}

}  // namespace

PaintCache& PaintCache::shared() {
    static auto* cache = new PaintCache;
    return *cache;
}

LayerPicture PaintCache::layerPicture(
    const Request& request, const std::function<std::shared_ptr<Picture>(const PixelRect&)>& make) {
    const AffineTransform& exact = request.placement.exact;
    Point place{std::floor(exact.tx), std::floor(exact.ty)};
    Point within{exact.tx - place.x, exact.ty - place.y};
    int left = static_cast<int>(place.x), top = static_cast<int>(place.y);
    PixelRect region = request.region;
    region.x -= left;
    region.y -= top;
    PictureKey key{request.node.identity(), request.kind};
    PictureEntry* known = key.identity ? layers_.find(key) : nullptr;
    bool fits =
        known && known->version == request.node.version() && known->look == lookOf(request) &&
        (request.fit == Fit::Near ? contains(expanded(known->region, 1, 1, 1, 1), region)
                                  : known->withinPixel == within && known->region == region);
    if (!fits) {
        LayerPicture made{make(request.region), region.x, region.y};
        if (!key.identity)
            return {made.picture, request.region.x, request.region.y};
        known = &layers_.put(key, {request.node.version(), lookOf(request), within, region, made},
                             made.picture->byteCount());
    }
    return {known->picture.picture, known->picture.x + left, known->picture.y + top};
}

std::shared_ptr<const Picture> PaintCache::boxShadow(int width, int height, double radius,
                                                     double sigma) {
    BoxKey key{width, height, radius, sigma};
    if (auto* known = boxes_.find(key))
        return *known;
    int margin = Picture::blurReach(sigma);
    auto picture = std::make_shared<Picture>(width + 2 * margin, height + 2 * margin,
                                             Picture::Format::Coverage);
    Canvas(*picture, 0, 0)
        .fillRoundedRect(toRect({margin, margin, width, height}), radius, {0, 0, 0, 1});
    picture->blur(sigma);
    return boxes_.put(key, picture, picture->byteCount());
}

std::shared_ptr<const Picture> PaintCache::scaledImage(const Ref<CGImage>& image,
                                                       const PixelPart& part, int width,
                                                       int height) {
    ImageKey key{image.get(), {part.x, part.y, part.width, part.height, width, height}};
    // Another image may have come to lie where a dead one was.
    if (auto* known = images_.find(key); known && known->image.lock() == image)
        return known->picture;
    auto picture = std::make_shared<Picture>(width, height, Picture::Format::Color);
    Canvas(*picture, 0, 0).drawImage(*image, part, toRect({0, 0, width, height}), 1);
    images_.put(key, {image, picture}, picture->byteCount());
    return picture;
}

std::size_t PaintCache::byteCount() const {
    return layers_.byteCount() + boxes_.byteCount() + images_.byteCount();
}

}  // namespace zn
