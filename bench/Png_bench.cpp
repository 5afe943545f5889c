#include <benchmark/benchmark.h>

#include <QBuffer>

#include "bench/Peer.h"
#include "zarnic/platform/UIImage.h"

using namespace zn;

namespace {

/// A smooth picture with fine grain: neither trivially packed nor noise.
const QByteArray& picture() {
    static const QByteArray bytes = [] {
        QImage image(512, 512, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x / 2, y / 2, (x * y / 512 + x * 7 % 5) & 255));
        QByteArray result;
        QBuffer buffer(&result);
        image.save(&buffer, "PNG");
        return result;
    }();
    return bytes;
}

Ref<UIImage> decodeOurs() {
    return UIImage::imageWithData(std::as_bytes(std::span(picture().data(), picture().size())));
}

QImage decodePeer() {
    return QImage::fromData(picture()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void decodePngOurs(benchmark::State& state) {
    bench::requireSame("decode", *decodeOurs()->cgImage(), decodePeer(), 0);
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(decodeOurs());
}

void decodePngPeer(benchmark::State& state) {
    bench::requireSame("decode", *decodeOurs()->cgImage(), decodePeer(), 0);
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(decodePeer());
}

BENCHMARK(decodePngOurs);
BENCHMARK(decodePngPeer);

}  // namespace
