#include "platform/drawing/NearestNeighbor.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "platform/drawing/CairoAccess.h"

namespace zn {

std::vector<std::size_t> nearestSamples(int first, int end, double origin, double scale,
                                        std::size_t count) {
    std::vector<std::size_t> indices;
    indices.reserve(static_cast<std::size_t>(std::max(0, end - first)));
    for (int pixel = first; pixel < end; ++pixel) {
        // A hair towards the right keeps exact edges exact under rounding.
        const double place = std::floor((pixel + 0.5 - origin) / scale + 1e-9);
        indices.push_back(
            static_cast<std::size_t>(std::clamp(place, 0.0, static_cast<double>(count - 1))));
    }
    return indices;
}

Ref<CGImage> stretchedSharply(const CGImage& image, double width, double height) {
    constexpr auto longestSide = static_cast<double>(longestSurfaceSide);
    if (!(width > 0 && height > 0 && width <= longestSide && height <= longestSide))
        return nullptr;
    const auto samples = [](double length, std::size_t count) {
        const double scale = std::ceil(length) / static_cast<double>(count);
        return nearestSamples(0, static_cast<int>(std::ceil(length)), 0, scale, count);
    };
    const auto columns = samples(width, image.width());
    const auto rows = samples(height, image.height());
    std::unique_ptr<std::uint32_t[]> pixels(new (std::nothrow)
                                                std::uint32_t[columns.size() * rows.size()]);
    if (!pixels)
        return nullptr;
    for (std::size_t y = 0; y < rows.size(); ++y) {
        std::uint32_t* to = pixels.get() + y * columns.size();
        const std::uint32_t* from = image.pixels().data() + rows[y] * image.width();
        if (y > 0 && rows[y] == rows[y - 1])
            std::copy_n(to - columns.size(), columns.size(), to);
        else
            std::ranges::transform(columns, to,
                                   [from](std::size_t column) { return from[column]; });
    }
    return make<CGImage>(columns.size(), rows.size(), std::move(pixels));
}

}  // namespace zn
