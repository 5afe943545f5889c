#pragma once

#include <cstdio>
#include <functional>
#include <span>
#include <vector>

#include <jpeglib.h>

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

using Bytes = std::vector<std::byte>;

/// Colours that run, with grain; opaque, or with alpha from clear to full.
Ref<CGImage> grainyPicture(std::size_t width, std::size_t height, bool opaque = true);

void append(Bytes& bytes, std::span<const std::byte> more);
void appendText(Bytes& bytes, std::string_view text);
/// The lowest `length` bytes of the number, the lowest first.
void appendNumber(Bytes& bytes, std::uint32_t number, std::size_t length);

/// What is to differ from the codec's defaults; called when they are set.
using JpegSettings = std::function<void(jpeg_compress_struct&)>;
/// Written by the codec itself; `samples` has as many bytes a pixel as `space` has components.
Bytes jpegFile(std::span<const std::uint8_t> samples, std::size_t width, std::size_t height,
               J_COLOR_SPACE space, const JpegSettings& settings = {});
Bytes jpegFile(const CGImage& image, const JpegSettings& settings = {});

/// The image's words are taken for straight pixels.
Bytes webpFile(const CGImage& image, bool lossless);
/// A container of the parts, each of which `riffChunk` made.
Bytes riffFile(std::initializer_list<Bytes> chunks);
Bytes riffChunk(std::string_view name, std::span<const std::byte> content);
/// What a container holds, without its head.
std::span<const std::byte> riffContent(const Bytes& file);

/// Colours as 0xRRGGBB.
using GifPalette = std::vector<std::uint32_t>;
struct GifFrame {
    int left = 0, top = 0, width = 0, height = 0;
    std::vector<std::uint8_t> indices{};
    GifPalette palette{};
    bool interlaced = false;
    int clearIndex = -1;
};
Bytes gifFile(int screenWidth, int screenHeight, const GifPalette& palette,
              const std::vector<GifFrame>& frames);

/// EXIF data, from the byte order on, with this orientation.
Bytes exifData(std::uint16_t orientation, bool littleEndian);

}  // namespace zn
