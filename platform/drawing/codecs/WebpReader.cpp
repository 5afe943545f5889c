#include <webp/decode.h>
#include <webp/demux.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "platform/drawing/codecs/Exif.h"
#include "platform/drawing/codecs/ImageCodec.h"
#include "platform/drawing/pixels/StraightPixels.h"

namespace zn {

namespace {

struct DemuxerDeleter {
    void operator()(WebPDemuxer* demuxer) const { WebPDemuxDelete(demuxer); }
};
using Demuxer = std::unique_ptr<WebPDemuxer, DemuxerDeleter>;

struct DecoderDeleter {
    void operator()(WebPIDecoder* decoder) const { WebPIDelete(decoder); }
};

const std::uint8_t* octets(std::span<const std::byte> bytes) {
    return reinterpret_cast<const std::uint8_t*>(bytes.data());
}

Demuxer demuxer(std::span<const std::byte> file) {
    const WebPData data{octets(file), file.size()};
    return Demuxer(WebPDemuxPartial(&data, nullptr));
}

/// One picture of the file and where on the canvas it lies.
struct Frame {
    std::span<const std::byte> bytes;
    std::size_t left = 0, top = 0, width = 0, height = 0;
};

/// The first frame of an animation.
std::optional<Frame> firstFrame(std::span<const std::byte> file) {
    const Demuxer parts = demuxer(file);
    WebPIterator found;
    if (!parts || !WebPDemuxGetFrame(parts.get(), 1, &found))
        return std::nullopt;
    const auto number = [](int value) { return static_cast<std::size_t>(value); };
    // The demuxer points into the file.
    const Frame frame{std::as_bytes(std::span(found.fragment.bytes, found.fragment.size)),
                      number(found.x_offset), number(found.y_offset), number(found.width),
                      number(found.height)};
    WebPDemuxReleaseIterator(&found);
    return frame;
}

struct Pixels {
    std::unique_ptr<std::uint32_t[]> words;
    bool opaque = false;
};

/// Decodes as many rows as the bytes hold; the rest is transparent. No words when there is none.
Pixels decode(const Frame& frame) {
    Pixels pixels;
    WebPDecoderConfig config;
    if (!WebPInitDecoderConfig(&config))
        return pixels;
    // Memory that nothing is written to is only reserved.
    const std::size_t stride = frame.width * sizeof(std::uint32_t);
    pixels.words = std::make_unique_for_overwrite<std::uint32_t[]>(frame.width * frame.height);
    config.output.colorspace = std::endian::native == std::endian::little ? MODE_BGRA : MODE_ARGB;
    config.output.is_external_memory = 1;
    config.output.u.RGBA = {reinterpret_cast<std::uint8_t*>(pixels.words.get()),
                            static_cast<int>(stride), stride * frame.height};
    const std::unique_ptr<WebPIDecoder, DecoderDeleter> decoder(WebPIDecode(nullptr, 0, &config));
    if (!decoder)
        return {};
    WebPIUpdate(decoder.get(), octets(frame.bytes), frame.bytes.size());
    int rows = 0, width = 0;
    if (!WebPIDecGetRGB(decoder.get(), &rows, &width, nullptr, nullptr) || rows < 1 ||
        static_cast<std::size_t>(width) != frame.width)
        return {};
    const std::span all(pixels.words.get(), frame.width * frame.height);
    const std::size_t decoded = frame.width * static_cast<std::size_t>(rows);
    pixels.opaque = premultiplyWords(all.first(decoded)) && decoded == all.size();
    std::ranges::fill(all.subspan(decoded), 0);
    return pixels;
}

/// The frame in its place on a canvas that is transparent elsewhere.
Pixels placed(const Pixels& pixels, const Frame& frame, std::size_t width, std::size_t height) {
    Pixels canvas{std::make_unique<std::uint32_t[]>(width * height)};
    for (std::size_t y = 0; y < frame.height; ++y)
        std::copy_n(pixels.words.get() + y * frame.width, frame.width,
                    canvas.words.get() + (frame.top + y) * width + frame.left);
    return canvas;
}

UIImageOrientation orientation(std::span<const std::byte> file) {
    const Demuxer parts = demuxer(file);
    WebPChunkIterator found;
    if (!parts || !WebPDemuxGetChunk(parts.get(), "EXIF", 1, &found))
        return UIImageOrientation::Up;
    const auto result =
        exifOrientationOfSegment(std::as_bytes(std::span(found.chunk.bytes, found.chunk.size)));
    WebPDemuxReleaseChunkIterator(&found);
    return result;
}

}  // namespace

bool hasWebpSignature(std::span<const std::byte> bytes) {
    return bytes.size() >= 12 && std::memcmp(bytes.data(), "RIFF", 4) == 0 &&
           std::memcmp(bytes.data() + 8, "WEBP", 4) == 0;
}

std::optional<DecodedImage> decodeWebp(std::span<const std::byte> bytes) {
    WebPBitstreamFeatures features;
    if (WebPGetFeatures(octets(bytes), bytes.size(), &features) != VP8_STATUS_OK)
        return std::nullopt;
    const auto width = static_cast<std::size_t>(features.width);
    const auto height = static_cast<std::size_t>(features.height);
    if (!mayDecode(width, height))
        return std::nullopt;
    const auto frame = features.has_animation ? firstFrame(bytes)
                                              : std::optional(Frame{bytes, 0, 0, width, height});
    if (!frame || frame->left + frame->width > width || frame->top + frame->height > height)
        return std::nullopt;
    Pixels pixels = decode(*frame);
    if (!pixels.words)
        return std::nullopt;
    if (frame->width != width || frame->height != height)
        pixels = placed(pixels, *frame, width, height);
    const auto opacity = pixels.opaque ? CGImage::Opacity::Opaque : CGImage::Opacity::Translucent;
    return DecodedImage{make<CGImage>(width, height, std::move(pixels.words), opacity),
                        orientation(bytes)};
}

}  // namespace zn
