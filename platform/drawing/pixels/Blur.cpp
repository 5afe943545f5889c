#include "platform/drawing/pixels/Blur.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace zn {

namespace {

/// Weights of a Gaussian, from the middle outward, in units of 1 / 65536.
std::vector<std::uint32_t> kernel(double sigma) {
    std::vector<double> weights(static_cast<std::size_t>(std::ceil(blurReach(sigma))) + 1);
    double sum = 0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const double distance = static_cast<double>(i) / sigma;
        weights[i] = std::exp(-distance * distance / 2);
        sum += i == 0 ? weights[i] : 2 * weights[i];
    }
    std::vector<std::uint32_t> result;
    result.reserve(weights.size());
    for (const double weight : weights)
        result.push_back(static_cast<std::uint32_t>(weight / sum * 65536 + 0.5));
    return result;
}

/// One line of pixels between two margins of zeros, so that the loops need no borders.
class PaddedLine {
public:
    PaddedLine(std::size_t length, std::size_t margin)
        : length_(length), margin_(margin), pixels_(length + 2 * margin), sums_(length) {}

    std::uint8_t& operator[](std::size_t index) { return pixels_[margin_ + index]; }

    std::uint8_t blurred(std::size_t index) const {
        return static_cast<std::uint8_t>(std::min<std::uint32_t>(sums_[index] >> 16, 255));
    }

    void blur(const std::vector<std::uint32_t>& weights) {
        std::ranges::fill(sums_, 0x8000U);
        const std::uint8_t* line = pixels_.data() + margin_;
        for (std::size_t i = 0; i < length_; ++i)
            sums_[i] += weights[0] * line[i];
        for (std::size_t tap = 1; tap < weights.size(); ++tap) {
            const std::uint8_t* before = line - tap;
            const std::uint8_t* after = line + tap;
            for (std::size_t i = 0; i < length_; ++i)
                sums_[i] += weights[tap] * (std::uint32_t{before[i]} + after[i]);
        }
    }

private:
    std::size_t length_;
    std::size_t margin_;
    std::vector<std::uint8_t> pixels_;
    std::vector<std::uint32_t> sums_;
};

/// `count` lines of `length` pixels, `step` bytes from one pixel to the next.
void blurLines(unsigned char* data, std::size_t count, std::size_t lineStep, std::size_t length,
               std::size_t step, const std::vector<std::uint32_t>& weights) {
    PaddedLine line(length, weights.size());
    for (std::size_t i = 0; i < count; ++i) {
        unsigned char* first = data + i * lineStep;
        for (std::size_t j = 0; j < length; ++j)
            line[j] = first[j * step];
        line.blur(weights);
        for (std::size_t j = 0; j < length; ++j)
            first[j * step] = line.blurred(j);
    }
}

}  // namespace

double blurReach(double sigma) {
    return 3 * sigma;
}

void blurAlpha(cairo_surface_t* surface, double sigma) {
    cairo_surface_flush(surface);
    unsigned char* data = cairo_image_surface_get_data(surface);
    if (data == nullptr || !(sigma > 0))
        return;
    const auto width = static_cast<std::size_t>(cairo_image_surface_get_width(surface));
    const auto height = static_cast<std::size_t>(cairo_image_surface_get_height(surface));
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    const auto weights = kernel(sigma);
    blurLines(data, height, stride, width, 1, weights);
    blurLines(data, width, 1, height, stride, weights);
    cairo_surface_mark_dirty(surface);
}

}  // namespace zn
