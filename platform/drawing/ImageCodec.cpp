#include "platform/drawing/ImageCodec.h"

namespace zn {

namespace {

struct Codec {
    bool (*recognises)(std::span<const std::byte>);
    std::optional<DecodedImage> (*decode)(std::span<const std::byte>);
};

constexpr Codec codecs[] = {{hasPngSignature, decodePng}};

}  // namespace

std::optional<DecodedImage> decodeImage(std::span<const std::byte> bytes) {
    for (const Codec& codec : codecs)
        if (codec.recognises(bytes))
            return codec.decode(bytes);
    return std::nullopt;
}

}  // namespace zn
