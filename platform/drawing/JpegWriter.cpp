#include <turbojpeg.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/drawing/ImageCodec.h"

namespace zn {

namespace {

struct CompressorDeleter {
    void operator()(void* compressor) const { tjDestroy(compressor); }
};
struct BufferDeleter {
    void operator()(unsigned char* buffer) const { tjFree(buffer); }
};

/// Above this the colours are kept at full resolution, below at half in both directions.
constexpr int finestHalvedColors = 89;

int libraryQuality(double quality) {
    return quality > 0 ? std::max(1, static_cast<int>(std::lround(std::min(quality, 1.0) * 100)))
                       : 1;
}

/// How EXIF numbers the ways to turn a picture.
std::byte exifNumber(UIImageOrientation orientation) {
    constexpr std::array<std::uint8_t, 8> numbers{1, 3, 8, 6, 2, 4, 5, 7};
    return std::byte{numbers[static_cast<std::size_t>(orientation)]};
}

/// An EXIF segment that says nothing but the orientation: one directory with one entry, in
/// big-endian order (CIPA DC-008).
std::vector<std::byte> orientationSegment(UIImageOrientation orientation) {
    constexpr std::size_t valuePlace = 29;
    constexpr std::array<std::uint8_t, 36> segment{
        0xFF, 0xE1, 0,    34,                      // the marker, the length from here
        'E',  'x',  'i',  'f',  0, 0,              // what kind it is
        'M',  'M',  0,    42,   0, 0, 0, 8,        // the order of bytes, where the directory is
        0,    1,    0x01, 0x12, 0, 3, 0, 0, 0, 1,  // one entry: orientation, one 16-bit number
        0,    0,    0,    0,                       // its value, padded
        0,    0,    0,    0};                      // no further directory
    std::vector<std::byte> bytes(segment.size());
    std::ranges::transform(segment, bytes.begin(),
                           [](std::uint8_t byte) { return std::byte{byte}; });
    bytes[valuePlace] = exifNumber(orientation);
    return bytes;
}

}  // namespace

std::optional<std::vector<std::byte>> encodeJpeg(const CGImage& image,
                                                 UIImageOrientation orientation, double quality) {
    constexpr std::size_t startMarkerLength = 2;
    const std::unique_ptr<void, CompressorDeleter> compressor(tjInitCompress());
    unsigned char* written = nullptr;
    unsigned long length = 0;
    const int level = libraryQuality(quality);
    const auto* pixels = reinterpret_cast<const unsigned char*>(image.pixels().data());
    const int format = std::endian::native == std::endian::little ? TJPF_BGRX : TJPF_XRGB;
    // The premultiplied colours with the alpha left out: what is clear becomes black.
    const bool done =
        compressor && image.width() <= longestJpegSide && image.height() <= longestJpegSide &&
        tjCompress2(compressor.get(), pixels, static_cast<int>(image.width()), 0,
                    static_cast<int>(image.height()), format, &written, &length,
                    level > finestHalvedColors ? TJSAMP_444 : TJSAMP_420, level, 0) == 0;
    const std::unique_ptr<unsigned char, BufferDeleter> buffer(written);
    if (!done)
        return std::nullopt;
    const auto* first = reinterpret_cast<const std::byte*>(buffer.get());
    std::vector<std::byte> bytes(first, first + length);
    if (orientation != UIImageOrientation::Up) {
        const auto segment = orientationSegment(orientation);
        bytes.insert(bytes.begin() + startMarkerLength, segment.begin(), segment.end());
    }
    return bytes;
}

}  // namespace zn
