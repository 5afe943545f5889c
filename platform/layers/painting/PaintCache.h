#pragma once

#include <array>
#include <compare>
#include <functional>

#include "platform/drawing/canvas/Canvas.h"
#include "platform/layers/painting/LayerPlacement.h"
#include "platform/layers/painting/LruCache.h"

namespace zn {

/// A picture of a layer and where its first pixel lies.
struct LayerPicture {
    std::shared_ptr<Picture> picture;
    int x = 0;
    int y = 0;
};

/// The costly things that painting keeps, for all screens together, each kind within its budget.
class PaintCache {
public:
    static PaintCache& shared();

    enum class Kind { Shadow, Raster };
    enum class Fit { Exact, Near };
    struct Request {
        Kind kind;
        const PaintNode& node;
        const LayerPlacement& placement;
        /// The pixels wanted.
        PixelRect region;
        /// Whatever else the picture depends on.
        double detail;
        /// Near: one that was made at another fraction of a pixel will do.
        Fit fit;
    };
    /// The picture of a layer's tree, made anew when the layer's version, its size on the screen or
    /// its place within a pixel has changed. Layers without identity are not kept.
    LayerPicture layerPicture(
        const Request& request,
        const std::function<std::shared_ptr<Picture>(const PixelRect&)>& make);

    /// The blurred coverage of a rounded box in pixels, `blurReach` of margin around it.
    std::shared_ptr<const Picture> boxShadow(int width, int height, double radius, double sigma);

    /// A part of an image at another size.
    std::shared_ptr<const Picture> scaledImage(const Ref<CGImage>& image, const PixelPart& part,
                                               int width, int height);

    std::size_t byteCount() const;

private:
    struct PictureKey {
        std::uint64_t identity;
        Kind kind;
        auto operator<=>(const PictureKey&) const = default;
    };
    struct PictureEntry {
        std::uint64_t version;
        /// Linear part of the transform and the request's detail.
        std::array<double, 5> look;
        Point withinPixel;
        PixelRect region;
        /// Its place is relative to the layer's.
        LayerPicture picture;
    };
    struct BoxKey {
        int width;
        int height;
        double radius;
        double sigma;
        auto operator<=>(const BoxKey&) const = default;
    };
    struct ImageKey {
        const CGImage* image;
        std::array<int, 6> sizes;
        auto operator<=>(const ImageKey&) const = default;
    };
    struct ImageEntry {
        WeakRef<CGImage> image;
        std::shared_ptr<const Picture> picture;
    };

    LruCache<PictureKey, PictureEntry> layers_{32 << 20};
    LruCache<BoxKey, std::shared_ptr<const Picture>> boxes_{4 << 20};
    LruCache<ImageKey, ImageEntry> images_{24 << 20};
};

}  // namespace zn
