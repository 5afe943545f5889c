#include <spng.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/drawing/codecs/Exif.h"
#include "platform/drawing/codecs/ImageCodec.h"
#include "platform/drawing/pixels/StraightPixels.h"

namespace zn {

namespace {

struct ContextDeleter {
    void operator()(spng_ctx* context) const { spng_ctx_free(context); }
};
using PngContext = std::unique_ptr<spng_ctx, ContextDeleter>;

constexpr std::array<std::byte, 8> signature{std::byte{0x89}, std::byte{'P'},  std::byte{'N'},
                                             std::byte{'G'},  std::byte{'\r'}, std::byte{'\n'},
                                             std::byte{0x1A}, std::byte{'\n'}};

std::size_t bigEndian32(const std::byte* bytes) {
    std::size_t value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | std::to_integer<std::size_t>(bytes[i]);
    return value;
}

/// The decoder refuses a chunk that the end of the file cuts short as a whole, with all the rows in
/// it. For a file that ends inside its pixel data this gives one whose last chunk is as long as
/// what is there; else nothing.
std::vector<std::byte> shortened(std::span<const std::byte> bytes) {
    constexpr std::size_t headLength = 8;
    constexpr std::size_t checkLength = 4;
    std::size_t place = signature.size();
    while (bytes.size() - place > headLength) {
        const std::size_t left = bytes.size() - place - headLength;
        const std::size_t length = bigEndian32(&bytes[place]);
        if (length + checkLength <= left) {
            place += headLength + length + checkLength;
            continue;
        }
        if (std::memcmp(&bytes[place + 4], "IDAT", 4) != 0)
            return {};
        const std::size_t kept = std::min(length, left);
        std::vector<std::byte> result(
            bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(place + headLength + kept));
        for (int i = 0; i < 4; ++i)
            result[place + static_cast<std::size_t>(i)] =
                static_cast<std::byte>(kept >> (24 - 8 * i));
        result.resize(result.size() + checkLength);
        return result;
    }
    return {};
}

/// Decodes row by row for as long as the data are good.
class RowReader {
public:
    RowReader(spng_ctx* context, const spng_ihdr& header)
        : context_(context),
          width_(header.width),
          height_(header.height),
          interlaced_(header.interlace_method != SPNG_INTERLACE_NONE) {}

    Ref<CGImage> read() {
        std::vector<std::uint32_t> first(width_);
        if (!readRow([&](std::size_t) { return std::span(first); }))
            return nullptr;
        pixels_ = std::make_unique_for_overwrite<std::uint32_t[]>(width_ * height_);
        std::ranges::copy(first, pixels_.get());
        if (interlaced_)
            clearFrom(1);
        while (more_ && readRow([&](std::size_t row) { return this->row(row); })) {
        }
        finish();
        return make<CGImage>(width_, height_, std::move(pixels_),
                             opaque_ ? CGImage::Opacity::Opaque : CGImage::Opacity::Translucent);
    }

private:
    std::span<std::uint32_t> row(std::size_t index) {
        return {pixels_.get() + index * width_, width_};
    }

    void clearFrom(std::size_t row) {
        std::fill(pixels_.get() + row * width_, pixels_.get() + height_ * width_, 0);
    }

    template <class Destination>
    bool readRow(Destination destination) {
        spng_row_info info{};
        if (spng_get_row_info(context_, &info) != SPNG_OK || info.row_num >= height_)
            return false;
        const std::span<std::uint32_t> pixels = destination(info.row_num);
        const int result = spng_decode_row(context_, pixels.data(), pixels.size_bytes());
        more_ = result == SPNG_OK;
        if (!more_ && result != SPNG_EOI)
            return false;
        rowsReached_ = std::max<std::size_t>(rowsReached_, info.row_num + 1U);
        // Of an interlaced picture a row comes again, with more of its pixels.
        if (!interlaced_)
            opaque_ = premultiplyRGBA(pixels) && opaque_;
        return true;
    }

    void finish() {
        if (interlaced_)
            opaque_ = premultiplyRGBA({pixels_.get(), height_ * width_});
        else
            clearFrom(rowsReached_);
        opaque_ = opaque_ && rowsReached_ == height_;
    }

    spng_ctx* context_;
    std::size_t width_;
    std::size_t height_;
    bool interlaced_;
    bool opaque_ = true;
    std::unique_ptr<std::uint32_t[]> pixels_;
    std::size_t rowsReached_ = 0;
    bool more_ = true;
};

UIImageOrientation orientation(spng_ctx* context) {
    spng_exif exif{};
    if (spng_get_exif(context, &exif) != SPNG_OK)
        return UIImageOrientation::Up;
    return exifOrientation(std::as_bytes(std::span(exif.data, exif.length)));
}

}  // namespace

bool hasPngSignature(std::span<const std::byte> bytes) {
    return bytes.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), bytes.begin());
}

std::optional<DecodedImage> decodePng(std::span<const std::byte> bytes) {
    constexpr std::size_t longestChunk = 8 << 20;
    const std::vector<std::byte> repaired = shortened(bytes);
    const std::span<const std::byte> source = repaired.empty() ? bytes : repaired;
    const PngContext context(spng_ctx_new(SPNG_CTX_IGNORE_ADLER32));
    if (!context)
        return std::nullopt;
    // A wrong check sum of pixel data does not take away the rows that decode all the same.
    spng_set_crc_action(context.get(), SPNG_CRC_USE, SPNG_CRC_DISCARD);
    spng_set_chunk_limits(context.get(), longestChunk, longestChunk);
    spng_ihdr header{};
    if (spng_set_png_buffer(context.get(), source.data(), source.size()) != SPNG_OK ||
        spng_get_ihdr(context.get(), &header) != SPNG_OK || !mayDecode(header.width, header.height))
        return std::nullopt;
    constexpr int flags = SPNG_DECODE_PROGRESSIVE | SPNG_DECODE_TRNS;
    if (spng_decode_image(context.get(), nullptr, 0, SPNG_FMT_RGBA8, flags) != SPNG_OK)
        return std::nullopt;
    DecodedImage decoded{RowReader(context.get(), header).read(), orientation(context.get())};
    return decoded.image ? std::optional(std::move(decoded)) : std::nullopt;
}

}  // namespace zn
