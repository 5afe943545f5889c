#include <cairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "platform/drawing/canvas/Picture.h"
#include "platform/drawing/pixels/Blur.h"

namespace zn {
namespace {

// Three boxes take the same time for any sigma; below this they are too coarse, and the exact
// kernel is short.
constexpr double SmallSigma = 4;

/// Coverage with eight more bits, so that several passes add no visible rounding.
struct Plane {
    std::size_t width;
    std::size_t height;
    std::vector<std::uint16_t> values;

    std::uint16_t* row(std::size_t y) { return &values[y * width]; }
};

Plane load(const Picture& picture) {
    Plane plane{
        static_cast<std::size_t>(picture.width()), static_cast<std::size_t>(picture.height()), {}};
    plane.values.resize(plane.width * plane.height);
    for (std::size_t y = 0; y < plane.height; ++y)
        std::transform(picture.bytes() + y * picture.stride(),
                       picture.bytes() + y * picture.stride() + plane.width, plane.row(y),
                       [](std::uint8_t value) { return static_cast<std::uint16_t>(value << 8); });
    return plane;
}

void store(Plane& plane, Picture& picture) {
    for (std::size_t y = 0; y < plane.height; ++y)
        std::transform(plane.row(y), plane.row(y) + plane.width,
                       picture.bytes() + y * picture.stride(), [](std::uint16_t value) {
                           return static_cast<std::uint8_t>(std::min((value + 128) >> 8, 255));
                       });
    cairo_surface_mark_dirty(picture.surface());
}

Plane transposed(Plane& plane) {
    Plane turned{plane.height, plane.width, std::vector<std::uint16_t>(plane.values.size())};
    constexpr std::size_t Tile = 32;
    for (std::size_t top = 0; top < plane.height; top += Tile)
        for (std::size_t left = 0; left < plane.width; left += Tile)
            for (std::size_t y = top; y < std::min(top + Tile, plane.height); ++y)
                for (std::size_t x = left; x < std::min(left + Tile, plane.width); ++x)
                    turned.values[x * plane.height + y] = plane.values[y * plane.width + x];
    return turned;
}

/// The mean over `before + 1 + after` values around each; nothing lies outside the row.
void boxRow(const std::vector<std::uint16_t>& in, std::vector<std::uint16_t>& out,
            std::size_t before, std::size_t after) {
    std::size_t count = in.size();
    std::uint32_t size = static_cast<std::uint32_t>(before + after + 1);
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < std::min(after, count); ++i)
        sum += in[i];
    for (std::size_t i = 0; i < count; ++i) {
        if (i + after < count)
            sum += in[i + after];
        if (i > before)
            sum -= in[i - before - 1];
        out[i] = static_cast<std::uint16_t>((sum + size / 2) / size);
    }
}

/// Widths of three boxes whose variances add up to sigma's square, from Kovesi, "Fast Almost-
/// Gaussian Filtering" (2010).
std::array<std::size_t, 3> boxWidths(double sigma) {
    double ideal = std::sqrt(4 * sigma * sigma + 1);
    auto lower = static_cast<std::size_t>(ideal);
    if (lower % 2 == 0)
        --lower;
    double low = static_cast<double>(lower);
    auto narrow = static_cast<std::size_t>(
        std::clamp(std::round((12 * sigma * sigma - 3 * low * low - 12 * low - 9) / (-4 * low - 4)),
                   0.0, 3.0));
    std::array<std::size_t, 3> widths{};
    for (std::size_t i = 0; i < widths.size(); ++i)
        widths[i] = i < narrow ? lower : lower + 2;
    return widths;
}

void boxRows(Plane& plane, double sigma) {
    std::vector<std::uint16_t> from(plane.width);
    std::vector<std::uint16_t> to(plane.width);
    auto widths = boxWidths(sigma);
    for (std::size_t y = 0; y < plane.height; ++y) {
        std::copy_n(plane.row(y), plane.width, from.begin());
        for (std::size_t width : widths) {
            boxRow(from, to, width / 2, width / 2);
            std::swap(from, to);
        }
        std::copy(from.begin(), from.end(), plane.row(y));
    }
}

}  // namespace

int Picture::blurReach(double sigma) {
    return static_cast<int>(std::ceil(zn::blurReach(std::clamp(sigma, 0.0, LargestSigma))));
}

void Picture::blur(double sigma) {
    sigma = std::clamp(sigma, 0.0, LargestSigma);
    if (!(sigma > 0.05) || !bytes() || format_ != Format::Coverage)
        return;
    if (sigma < SmallSigma)
        return blurAlpha(surface_, sigma);
    Plane plane = load(*this);
    boxRows(plane, sigma);
    Plane turned = transposed(plane);
    boxRows(turned, sigma);
    plane = transposed(turned);
    store(plane, *this);
}

}  // namespace zn
