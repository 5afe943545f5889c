#include <spng.h>

#include <cstdlib>

#include "platform/drawing/codecs/ImageCodec.h"
#include "platform/drawing/pixels/PixelFormat.h"

namespace zn {

namespace {

struct ContextDeleter {
    void operator()(spng_ctx* context) const { spng_ctx_free(context); }
};

/// A row as straight red, green, blue and, unless the image is opaque, alpha.
void straightRow(std::span<const std::uint32_t> pixels, bool opaque, std::vector<std::byte>& row) {
    row.clear();
    for (const std::uint32_t pixel : pixels) {
        const std::uint32_t alpha = pixel >> 24;
        for (const int shift : {16, 8, 0})
            row.push_back(static_cast<std::byte>(straight(pixel >> shift & 0xFF, alpha)));
        if (!opaque)
            row.push_back(static_cast<std::byte>(alpha));
    }
}

bool encodeRows(spng_ctx* context, const CGImage& image) {
    std::vector<std::byte> row;
    for (std::size_t y = 0; y < image.height(); ++y) {
        straightRow(image.pixels().subspan(y * image.width(), image.width()), image.opaque(), row);
        const int result = spng_encode_row(context, row.data(), row.size());
        const bool last = y + 1 == image.height();
        if (result != (last ? SPNG_EOI : SPNG_OK))
            return false;
    }
    return true;
}

}  // namespace

std::optional<std::vector<std::byte>> encodePng(const CGImage& image) {
    const std::unique_ptr<spng_ctx, ContextDeleter> context(spng_ctx_new(SPNG_CTX_ENCODER));
    spng_ihdr header{};
    header.width = static_cast<std::uint32_t>(image.width());
    header.height = static_cast<std::uint32_t>(image.height());
    header.bit_depth = 8;
    header.color_type =
        image.opaque() ? SPNG_COLOR_TYPE_TRUECOLOR : SPNG_COLOR_TYPE_TRUECOLOR_ALPHA;
    constexpr int flags = SPNG_ENCODE_PROGRESSIVE | SPNG_ENCODE_FINALIZE;
    if (!context || spng_set_option(context.get(), SPNG_ENCODE_TO_BUFFER, 1) != SPNG_OK ||
        spng_set_ihdr(context.get(), &header) != SPNG_OK ||
        spng_encode_image(context.get(), nullptr, 0, SPNG_FMT_PNG, flags) != SPNG_OK ||
        !encodeRows(context.get(), image))
        return std::nullopt;
    std::size_t length = 0;
    int error = 0;
    const std::unique_ptr<void, void (*)(void*)> png(
        spng_get_png_buffer(context.get(), &length, &error), std::free);
    if (!png)
        return std::nullopt;
    const auto* first = static_cast<const std::byte*>(png.get());
    return std::vector<std::byte>(first, first + length);
}

}  // namespace zn
