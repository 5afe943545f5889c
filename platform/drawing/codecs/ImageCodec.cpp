#include "platform/drawing/codecs/ImageCodec.h"

#include <atomic>
#include <new>

namespace zn {

namespace {

struct Codec {
    bool (*recognises)(std::span<const std::byte>);
    std::optional<DecodedImage> (*decode)(std::span<const std::byte>);
};

constexpr Codec codecs[] = {{hasPngSignature, decodePng},
                            {hasJpegSignature, decodeJpeg},
                            {hasWebpSignature, decodeWebp},
                            {hasGifSignature, decodeGif}};

std::atomic<std::uint64_t>& pixelLimit() {
    static std::atomic<std::uint64_t> limit = 100'000'000;
    return limit;
}

}  // namespace

std::uint64_t UIImage::largestPixelCount() {
    return pixelLimit().load(std::memory_order_relaxed);
}

void UIImage::setLargestPixelCount(std::uint64_t count) {
    pixelLimit().store(count, std::memory_order_relaxed);
}

bool mayDecode(std::uint64_t width, std::uint64_t height) {
    return width > 0 && height > 0 && width * height <= UIImage::largestPixelCount();
}

std::optional<DecodedImage> decodeImage(std::span<const std::byte> bytes) {
    for (const Codec& codec : codecs) {
        if (!codec.recognises(bytes))
            continue;
        try {
            return codec.decode(bytes);
        } catch (const std::bad_alloc&) {
            // A picture too large for the machine is no reason to end the program.
            return std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace zn
