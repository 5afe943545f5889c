#include "platform/drawing/context/NearestNeighbor.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "platform/drawing/context/CairoAccess.h"

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

namespace {

/// Where each row or column of an image begins in so many pixels, and where the last one ends.
std::vector<std::size_t> edges(double length, std::size_t count) {
    const double scale = std::ceil(length) / static_cast<double>(count);
    const auto samples = nearestSamples(0, static_cast<int>(std::ceil(length)), 0.0, scale, count);
    std::vector<std::size_t> result(count + 1, samples.size());
    for (std::size_t pixel = samples.size(); pixel > 0; --pixel)
        result[samples[pixel - 1]] = pixel - 1;
    // What no pixel shows begins where the next one does.
    for (std::size_t index = count; index > 0; --index)
        result[index - 1] = std::min(result[index - 1], result[index]);
    return result;
}

/// A row of the image, each pixel as wide as its edges say.
void fillRow(std::uint32_t* to, std::span<const std::uint32_t> from,
             const std::vector<std::size_t>& columns) {
    for (std::size_t first = 0, end = 0; first < from.size(); first = end) {
        while (end < from.size() && from[end] == from[first])
            ++end;
        std::fill(to + columns[first], to + columns[end], from[first]);
    }
}

}  // namespace

Ref<CGImage> stretchedSharply(const CGImage& image, double width, double height) {
    constexpr auto longestSide = static_cast<double>(longestSurfaceSide);
    if (!(width > 0 && height > 0 && width <= longestSide && height <= longestSide))
        return nullptr;
    const auto columns = edges(width, image.width());
    const auto rows = edges(height, image.height());
    const std::size_t length = columns.back();
    std::unique_ptr<std::uint32_t[]> pixels(new (std::nothrow) std::uint32_t[length * rows.back()]);
    if (!pixels)
        return nullptr;
    for (std::size_t row = 0; row < image.height(); ++row) {
        if (rows[row] == rows[row + 1])
            continue;
        std::uint32_t* const first = pixels.get() + rows[row] * length;
        fillRow(first, image.pixels().subspan(row * image.width(), image.width()), columns);
        for (std::size_t y = rows[row] + 1; y < rows[row + 1]; ++y)
            std::copy_n(first, length, pixels.get() + y * length);
    }
    return make<CGImage>(length, rows.back(), std::move(pixels));
}

}  // namespace zn
