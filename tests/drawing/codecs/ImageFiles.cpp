#include "tests/drawing/codecs/ImageFiles.h"

#include <gif_lib.h>
#include <gtest/gtest.h>
#include <webp/encode.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace zn {

namespace {

constexpr std::size_t riffHeadLength = 12;

const std::uint8_t* octets(const CGImage& image) {
    return reinterpret_cast<const std::uint8_t*>(image.pixels().data());
}

GifFileType* checked(GifFileType* file) {
    EXPECT_TRUE(file);
    return file;
}

std::unique_ptr<ColorMapObject, decltype(&GifFreeMapObject)> colorMap(const GifPalette& palette) {
    std::vector<GifColorType> colors;
    for (const std::uint32_t color : palette)
        colors.push_back({static_cast<GifByteType>(color >> 16),
                          static_cast<GifByteType>(color >> 8), static_cast<GifByteType>(color)});
    return {palette.empty() ? nullptr
                            : GifMakeMapObject(static_cast<int>(colors.size()), colors.data()),
            GifFreeMapObject};
}

std::vector<int> gifRows(const GifFrame& frame) {
    std::vector<int> rows;
    if (!frame.interlaced)
        for (int row = 0; row < frame.height; ++row)
            rows.push_back(row);
    else
        for (const auto& [first, step] : {std::pair(0, 8), {4, 8}, {2, 4}, {1, 2}})
            for (int row = first; row < frame.height; row += step)
                rows.push_back(row);
    return rows;
}

void putFrame(GifFileType* file, const GifFrame& frame) {
    if (frame.clearIndex >= 0) {
        const GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, frame.clearIndex};
        GifByteType block[4];
        const std::size_t length = EGifGCBToExtension(&control, block);
        EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(length), block);
    }
    const auto palette = colorMap(frame.palette);
    EXPECT_EQ(EGifPutImageDesc(file, frame.left, frame.top, frame.width, frame.height,
                               frame.interlaced, palette.get()),
              GIF_OK);
    std::vector<std::uint8_t> indices = frame.indices;
    for (const int row : gifRows(frame))
        EXPECT_EQ(
            EGifPutLine(file, &indices[static_cast<std::size_t>(row * frame.width)], frame.width),
            GIF_OK);
}

}  // namespace

Ref<CGImage> grainyPicture(std::size_t width, std::size_t height, bool opaque) {
    std::mt19937 random(5);
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint32_t alpha = opaque ? 0xFF : random() & 0xFF;
            const auto channel = [&](std::size_t base) {
                return static_cast<std::uint32_t>(std::min<std::size_t>(base + random() % 20, 255) *
                                                  alpha / 255);
            };
            pixels[y * width + x] = alpha << 24 | channel(x * 255 / width) << 16 |
                                    channel(y * 255 / height) << 8 | channel(64);
        }
    return make<CGImage>(width, height, std::move(pixels));
}

void append(Bytes& bytes, std::span<const std::byte> more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

void appendText(Bytes& bytes, std::string_view text) {
    append(bytes, std::as_bytes(std::span(text)));
}

void appendNumber(Bytes& bytes, std::uint32_t number, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i)
        bytes.push_back(static_cast<std::byte>(number >> 8 * i));
}

Bytes jpegFile(std::span<const std::uint8_t> samples, std::size_t width, std::size_t height,
               J_COLOR_SPACE space, const JpegSettings& settings) {
    jpeg_error_mgr errors;
    jpeg_compress_struct codec{};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char* written = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&codec, &written, &length);
    codec.image_width = static_cast<JDIMENSION>(width);
    codec.image_height = static_cast<JDIMENSION>(height);
    codec.input_components = static_cast<int>(samples.size() / width / height);
    codec.in_color_space = space;
    jpeg_set_defaults(&codec);
    if (settings)
        settings(codec);
    jpeg_start_compress(&codec, TRUE);
    const std::size_t rowLength = samples.size() / height;
    for (std::size_t row = 0; row < height; ++row) {
        auto* first = const_cast<JSAMPROW>(&samples[row * rowLength]);
        jpeg_write_scanlines(&codec, &first, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    const auto bytes = std::as_bytes(std::span(written, length));
    Bytes result(bytes.begin(), bytes.end());
    std::free(written);
    return result;
}

Bytes jpegFile(const CGImage& image, const JpegSettings& settings) {
    return jpegFile({octets(image), image.byteCount()}, image.width(), image.height(), JCS_EXT_BGRX,
                    settings);
}

Bytes webpFile(const CGImage& image, bool lossless) {
    const std::uint8_t* bytes = octets(image);
    const auto width = static_cast<int>(image.width()), height = static_cast<int>(image.height());
    std::uint8_t* written = nullptr;
    const std::size_t length =
        lossless ? WebPEncodeLosslessBGRA(bytes, width, height, width * 4, &written)
                 : WebPEncodeBGRA(bytes, width, height, width * 4, 80, &written);
    EXPECT_GT(length, 0U);
    const auto all = std::as_bytes(std::span(written, length));
    Bytes result(all.begin(), all.end());
    WebPFree(written);
    return result;
}

Bytes riffChunk(std::string_view name, std::span<const std::byte> content) {
    Bytes chunk;
    appendText(chunk, name);
    appendNumber(chunk, static_cast<std::uint32_t>(content.size()), 4);
    append(chunk, content);
    if (content.size() % 2 != 0)
        chunk.push_back(std::byte{0});
    return chunk;
}

Bytes riffFile(std::initializer_list<Bytes> chunks) {
    Bytes content;
    appendText(content, "WEBP");
    for (const Bytes& chunk : chunks)
        append(content, chunk);
    return riffChunk("RIFF", content);
}

std::span<const std::byte> riffContent(const Bytes& file) {
    return std::span(file).subspan(riffHeadLength);
}

Bytes gifFile(int screenWidth, int screenHeight, const GifPalette& palette,
              const std::vector<GifFrame>& frames) {
    Bytes bytes;
    const auto write = [](GifFileType* file, const GifByteType* from, int length) {
        append(*static_cast<Bytes*>(file->UserData),
               std::as_bytes(std::span(from, static_cast<std::size_t>(length))));
        return length;
    };
    GifFileType* file = checked(EGifOpen(&bytes, write, nullptr));
    EGifSetGifVersion(file, true);
    EGifPutScreenDesc(file, screenWidth, screenHeight, 8, 0, colorMap(palette).get());
    for (const GifFrame& frame : frames)
        putFrame(file, frame);
    EXPECT_EQ(EGifCloseFile(file, nullptr), GIF_OK);
    return bytes;
}

Bytes exifData(std::uint16_t orientation, bool littleEndian) {
    Bytes data;
    const auto number = [&](std::uint32_t value, std::size_t length) {
        const auto start = static_cast<std::ptrdiff_t>(data.size());
        appendNumber(data, value, length);
        if (!littleEndian)
            std::reverse(data.begin() + start, data.end());
    };
    appendText(data, littleEndian ? "II" : "MM");
    number(42, 2);
    number(8, 4);
    number(2, 2);
    // The resolution's unit before it: an entry to be passed.
    for (const auto& [tag, value] : {std::pair(0x0128U, 2U), {0x0112U, unsigned{orientation}}}) {
        number(tag, 2);
        number(3, 2);
        number(1, 4);
        number(value, 2);
        number(0, 2);
    }
    number(0, 4);
    return data;
}

}  // namespace zn
