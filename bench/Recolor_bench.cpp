#include <benchmark/benchmark.h>

#include <cstring>

#include "bench/Peer.h"
#include "zarnic/ZNQRCodeHelper.h"

using namespace zn;

namespace {

constexpr std::size_t side = 2000;

/// Greys of every kind.
const Ref<UIImage>& picture() {
    static const Ref<UIImage> image = [] {
        auto pixels = std::make_unique<std::uint32_t[]>(side * side);
        for (std::uint32_t i = 0; i < side * side; ++i)
            pixels[i] = 0xFF000000 | (i * 2654435761U >> 24) * 0x010101;
        return UIImage::imageWithCGImage(make<CGImage>(side, side, std::move(pixels)));
    }();
    return image;
}

Ref<UIImage> recolored() {
    static const auto on = UIColor::redColor(), off = UIColor::yellowColor();
    return ZNQRCodeHelper::CodeChangeColorWithImage(picture(), on, off);
}

QImage recoloredPixels() {
    const QImage source(reinterpret_cast<const uchar*>(picture()->cgImage()->pixels().data()), side,
                        side, QImage::Format_ARGB32_Premultiplied);
    QImage result(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < result.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x)
            to[x] = (from[x] & 0xFFFFFF) < 0x999999 ? qRgb(255, 0, 0) : qRgb(255, 255, 0);
    }
    return result;
}

/// By its own means: to one bit with a threshold, then to two colours.
QImage recolorByQtsTables() {
    const QImage source(reinterpret_cast<const uchar*>(picture()->cgImage()->pixels().data()), side,
                        side, QImage::Format_RGB32);
    QImage gray =
        source.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_Indexed8);
    QList<QRgb> colors;
    for (int value = 0; value < 256; ++value)
        colors.append(value < 0x99 ? qRgb(255, 0, 0) : qRgb(255, 255, 0));
    gray.setColorTable(colors);
    return gray.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void Recolor_Zarnic(benchmark::State& state) {
    bench::requireSame("recolour", *recolored()->cgImage(), recoloredPixels(), 0);
    bench::requireSame("recolour", *recolored()->cgImage(), recolorByQtsTables(), 0);
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(recolored());
}

void Recolor_Qt(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(recolorByQtsTables());
}

/// The same bytes to a new place.
void Recolor_Memcpy(benchmark::State& state) {
    const auto pixels = picture()->cgImage()->pixels();
    for ([[maybe_unused]] auto turn : state) {
        const auto copy = std::make_unique_for_overwrite<std::uint32_t[]>(pixels.size());
        std::memcpy(copy.get(), pixels.data(), pixels.size_bytes());
        benchmark::DoNotOptimize(copy.get()[pixels.size() / 2]);
    }
}

BENCHMARK(Recolor_Zarnic);
BENCHMARK(Recolor_Qt);
BENCHMARK(Recolor_Memcpy);

}  // namespace
