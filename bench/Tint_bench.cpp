#include <benchmark/benchmark.h>
#include <cairo.h>

#include "bench/Peer.h"
#include "zarnic/UIImage+ZNCategory.h"

using namespace zn;

namespace {

constexpr int side = 2000;

/// Alpha of every kind.
const Ref<UIImage>& picture() {
    static const Ref<UIImage> image = [] {
        auto pixels = std::make_unique<std::uint32_t[]>(side * side);
        for (std::uint32_t i = 0; i < side * side; ++i)
            pixels[i] = (i * 2654435761U >> 24) * 0x01010101;
        return UIImage::imageWithCGImage(make<CGImage>(side, side, std::move(pixels)));
    }();
    return image;
}

Ref<UIImage> tinted() {
    static const auto color = UIColor::redColor();
    return zn_ImageWithTintColor(picture(), color, CGBlendMode::Normal);
}

cairo_surface_t* tintedByCairo() {
    cairo_surface_t* result = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, side, side);
    cairo_surface_t* image = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(
            const_cast<std::uint32_t*>(picture()->cgImage()->pixels().data())),
        CAIRO_FORMAT_ARGB32, side, side, side * 4);
    cairo_t* cairo = cairo_create(result);
    cairo_set_source_rgb(cairo, 1, 0, 0);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cairo);
    cairo_set_source_surface(cairo, image, 0, 0);
    cairo_set_operator(cairo, CAIRO_OPERATOR_DEST_IN);
    cairo_paint(cairo);
    cairo_destroy(cairo);
    cairo_surface_destroy(image);
    cairo_surface_flush(result);
    return result;
}

void Tint_Zarnic(benchmark::State& state) {
    setUIGraphicsMainScreenScale(1);
    cairo_surface_t* peer = tintedByCairo();
    bench::requireSame(
        "tint", *tinted()->cgImage(),
        QImage(cairo_image_surface_get_data(peer), side, side, QImage::Format_ARGB32_Premultiplied),
        0);
    cairo_surface_destroy(peer);
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(tinted());
}

void Tint_Qt(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state)
        cairo_surface_destroy(tintedByCairo());
}

BENCHMARK(Tint_Zarnic);
BENCHMARK(Tint_Qt);

}  // namespace
