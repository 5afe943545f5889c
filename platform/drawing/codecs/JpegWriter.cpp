#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <new>

#include "platform/drawing/codecs/Exif.h"
#include "platform/drawing/codecs/ImageCodec.h"
#include "platform/drawing/codecs/JpegErrors.h"

namespace zn {

namespace {

/// Above this the colours are kept at full resolution, below at half in both directions.
constexpr int finestHalvedColors = 89;

int libraryQuality(double quality) {
    return quality > 0 ? std::max(1, static_cast<int>(std::lround(std::min(quality, 1.0) * 100)))
                       : 1;
}

constexpr std::size_t orientationSegmentLength = 36;
using OrientationSegment = std::array<std::byte, orientationSegmentLength>;

/// An EXIF segment that says nothing but the orientation: one directory with one entry, in
/// big-endian order (CIPA DC-008).
OrientationSegment orientationSegment(UIImageOrientation orientation) {
    constexpr std::size_t valuePlace = 29;
    constexpr std::array<std::uint8_t, orientationSegmentLength> segment{
        0xFF, 0xE1, 0,    34,                      // the marker, the length from here
        'E',  'x',  'i',  'f',  0, 0,              // what kind it is
        'M',  'M',  0,    42,   0, 0, 0, 8,        // the order of bytes, where the directory is
        0,    1,    0x01, 0x12, 0, 3, 0, 0, 0, 1,  // one entry: orientation, one 16-bit number
        0,    0,    0,    0,                       // its value, padded
        0,    0,    0,    0};                      // no further directory
    OrientationSegment bytes;
    std::ranges::transform(segment, bytes.begin(),
                           [](std::uint8_t byte) { return std::byte{byte}; });
    bytes[valuePlace] = std::byte{exifNumber(orientation)};
    return bytes;
}

/// What the codec writes passes through a piece of memory that is small enough for the processor's
/// first cache.
class Destination : public jpeg_destination_mgr {
public:
    Destination() : jpeg_destination_mgr() {
        init_destination = [](j_compress_ptr codec) { of(codec).startPiece(); };
        empty_output_buffer = [](j_compress_ptr codec) {
            of(codec).endPiece(codec, pieceLength);
            of(codec).startPiece();
            return TRUE;
        };
        term_destination = [](j_compress_ptr codec) {
            of(codec).endPiece(codec, pieceLength - of(codec).free_in_buffer);
        };
    }
    Destination(const Destination&) = delete;
    Destination& operator=(const Destination&) = delete;
    virtual ~Destination() = default;

protected:
    virtual void take(std::span<const JOCTET> piece) = 0;

private:
    static constexpr std::size_t pieceLength = 16 << 10;

    static Destination& of(j_compress_ptr codec) { return static_cast<Destination&>(*codec->dest); }

    void startPiece() {
        next_output_byte = piece_.data();
        free_in_buffer = pieceLength;
    }

    void endPiece(j_compress_ptr codec, std::size_t length) {
        if (!taken({piece_.data(), length}))
            codec->err->error_exit(reinterpret_cast<j_common_ptr>(codec));
    }

    /// No exception may pass through the codec.
    bool taken(std::span<const JOCTET> piece) {
        try {
            take(piece);
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    std::array<JOCTET, pieceLength> piece_;
};

class KeptBytes final : public Destination {
public:
    std::vector<std::byte> bytes;

private:
    void take(std::span<const JOCTET> piece) override {
        const auto added = std::as_bytes(piece);
        bytes.insert(bytes.end(), added.begin(), added.end());
    }
};

class CountedBytes final : public Destination {
public:
    std::size_t count = 0;

private:
    void take(std::span<const JOCTET> piece) override { count += piece.size(); }
};

class Compressor {
public:
    explicit Compressor(Destination& destination) : codec_() {
        codec_.err = &errors_;
        runJpegSteps(errors_, [this] { jpeg_create_compress(&codec_); });
        codec_.dest = &destination;
    }
    ~Compressor() { jpeg_destroy_compress(&codec_); }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;

    bool write(const CGImage& image, int quality) {
        return codec_.mem && runJpegSteps(errors_, [&] {
                   set(image, quality);
                   jpeg_start_compress(&codec_, TRUE);
                   writeRows(image);
                   jpeg_finish_compress(&codec_);
               });
    }

private:
    void set(const CGImage& image, int quality) {
        codec_.image_width = static_cast<JDIMENSION>(image.width());
        codec_.image_height = static_cast<JDIMENSION>(image.height());
        codec_.input_components = sizeof(std::uint32_t);
        // The premultiplied colours with the alpha left out: what is clear becomes black.
        codec_.in_color_space =
            std::endian::native == std::endian::little ? JCS_EXT_BGRX : JCS_EXT_XRGB;
        jpeg_set_defaults(&codec_);
        jpeg_set_quality(&codec_, quality, TRUE);
        const int halving = quality > finestHalvedColors ? 1 : 2;
        codec_.comp_info[0].h_samp_factor = halving;
        codec_.comp_info[0].v_samp_factor = halving;
    }

    void writeRows(const CGImage& image) {
        constexpr JDIMENSION rowsAtATime = 16;
        const auto* pixels = reinterpret_cast<const JSAMPLE*>(image.pixels().data());
        const std::size_t rowLength = image.width() * sizeof(std::uint32_t);
        while (codec_.next_scanline < codec_.image_height) {
            std::array<JSAMPROW, rowsAtATime> rows;
            const JDIMENSION first = codec_.next_scanline;
            const JDIMENSION count = std::min(rowsAtATime, codec_.image_height - first);
            for (JDIMENSION row = 0; row < count; ++row)
                rows[row] = const_cast<JSAMPROW>(pixels + (first + row) * rowLength);
            jpeg_write_scanlines(&codec_, rows.data(), count);
        }
    }

    JpegErrors errors_;
    jpeg_compress_struct codec_;
};

bool compress(const CGImage& image, double quality, Destination& destination) {
    return image.width() <= longestJpegSide && image.height() <= longestJpegSide &&
           Compressor(destination).write(image, libraryQuality(quality));
}

}  // namespace

std::optional<std::vector<std::byte>> encodeJpeg(const CGImage& image,
                                                 UIImageOrientation orientation, double quality) {
    constexpr std::size_t startMarkerLength = 2;
    KeptBytes destination;
    if (!compress(image, quality, destination))
        return std::nullopt;
    auto& bytes = destination.bytes;
    if (orientation != UIImageOrientation::Up) {
        const auto segment = orientationSegment(orientation);
        bytes.insert(bytes.begin() + startMarkerLength, segment.begin(), segment.end());
    }
    return std::move(bytes);
}

std::size_t jpegLength(const CGImage& image, UIImageOrientation orientation, double quality) {
    CountedBytes destination;
    if (!compress(image, quality, destination))
        return 0;
    return destination.count +
           (orientation == UIImageOrientation::Up ? 0 : orientationSegmentLength);
}

}  // namespace zn
