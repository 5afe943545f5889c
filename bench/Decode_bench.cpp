#include <benchmark/benchmark.h>
#include <spng.h>

#include <QBuffer>
#include <cmath>
#include <cstdio>
#include <memory>

#include <jpeglib.h>

#include "bench/Peer.h"
#include "zarnic/platform/drawing/UIImage.h"

using namespace zn;

namespace {

constexpr int side = 1000;

enum class Alpha { None, Some };

/// Soft shapes with fine grain, as a photograph has; with alpha they fade at the edges.
QImage picture(Alpha alpha) {
    QImage image(side, side, alpha == Alpha::None ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const auto wave = [&](double across, double down, int grain) {
                const double value = 120 + 100 * std::sin(x * across) * std::cos(y * down);
                return static_cast<int>(value) + (x * 7 + y * 13 + x * y) % grain;
            };
            const int edge = std::min({x, y, side - 1 - x, side - 1 - y});
            image.setPixel(x, y,
                           qRgba(wave(0.01, 0.02, 7), wave(0.03, 0.01, 5), wave(0.005, 0.007, 9),
                                 alpha == Alpha::None ? 255 : std::min(255, edge)));
        }
    return image;
}

QByteArray file(const QImage& image, const char* format) {
    constexpr int jpegQuality = 90;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format, QByteArray(format) == "JPG" ? jpegQuality : -1);
    return bytes;
}

using RawPixels = std::unique_ptr<std::uint32_t[]>;

RawPixels rawJpeg(const QByteArray& bytes) {
    jpeg_error_mgr errors;
    jpeg_decompress_struct codec;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&codec);
    jpeg_mem_src(&codec, reinterpret_cast<const unsigned char*>(bytes.data()),
                 static_cast<unsigned long>(bytes.size()));
    jpeg_read_header(&codec, TRUE);
    codec.out_color_space = JCS_EXT_BGRA;
    jpeg_start_decompress(&codec);
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(side * side);
    while (codec.output_scanline < codec.output_height) {
        auto* row = reinterpret_cast<JSAMPROW>(pixels.get() + codec.output_scanline * side);
        jpeg_read_scanlines(&codec, &row, 1);
    }
    jpeg_finish_decompress(&codec);
    jpeg_destroy_decompress(&codec);
    return pixels;
}

/// Straight pixels with red first, as the codec gives them.
RawPixels rawPng(const QByteArray& bytes) {
    spng_ctx* codec = spng_ctx_new(0);
    spng_set_png_buffer(codec, bytes.data(), static_cast<std::size_t>(bytes.size()));
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(side * side);
    spng_decode_image(codec, pixels.get(), side * side * sizeof(std::uint32_t), SPNG_FMT_RGBA8,
                      SPNG_DECODE_TRNS);
    spng_ctx_free(codec);
    return pixels;
}

Ref<UIImage> ours(const QByteArray& bytes) {
    return UIImage::imageWithData(std::as_bytes(std::span(bytes.data(), bytes.size())));
}

QImage qts(const QByteArray& bytes) {
    const QImage image = QImage::fromData(bytes);
    return image.hasAlphaChannel() ? image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                                   : image;
}

QImage wrapped(const RawPixels& pixels, QImage::Format format) {
    return QImage(reinterpret_cast<const uchar*>(pixels.get()), side, side, format)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

struct Task {
    QByteArray bytes;
    RawPixels (*raw)(const QByteArray&);
    QImage::Format rawFormat;

    Task(const char* format, Alpha alpha)
        : bytes(file(picture(alpha), format)),
          raw(QByteArray(format) == "JPG" ? rawJpeg : rawPng),
          rawFormat(raw == rawJpeg ? QImage::Format_ARGB32 : QImage::Format_RGBA8888) {
        // Qt premultiplies with another rounding.
        bench::requireSame(format, *ours(bytes)->cgImage(), wrapped(raw(bytes), rawFormat), 0.5);
        bench::requireSame(format, *ours(bytes)->cgImage(), qts(bytes), 0.5);
    }
};

const Task& jpeg() {
    static const Task task("JPG", Alpha::None);
    return task;
}

const Task& png() {
    static const Task task("PNG", Alpha::None);
    return task;
}

const Task& pngWithAlpha() {
    static const Task task("PNG", Alpha::Some);
    return task;
}

void Decode_Zarnic(benchmark::State& state, const Task& (*task)()) {
    const QByteArray& bytes = task().bytes;
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(ours(bytes));
}

void Decode_Codec(benchmark::State& state, const Task& (*task)()) {
    const Task& work = task();
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(work.raw(work.bytes));
}

void Decode_Qt(benchmark::State& state, const Task& (*task)()) {
    const QByteArray& bytes = task().bytes;
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(qts(bytes));
}

BENCHMARK_CAPTURE(Decode_Zarnic, jpeg, jpeg);
BENCHMARK_CAPTURE(Decode_Codec, jpeg, jpeg);
BENCHMARK_CAPTURE(Decode_Qt, jpeg, jpeg);
BENCHMARK_CAPTURE(Decode_Zarnic, png, png);
BENCHMARK_CAPTURE(Decode_Codec, png, png);
BENCHMARK_CAPTURE(Decode_Qt, png, png);
BENCHMARK_CAPTURE(Decode_Zarnic, pngWithAlpha, pngWithAlpha);
BENCHMARK_CAPTURE(Decode_Codec, pngWithAlpha, pngWithAlpha);
BENCHMARK_CAPTURE(Decode_Qt, pngWithAlpha, pngWithAlpha);

}  // namespace
