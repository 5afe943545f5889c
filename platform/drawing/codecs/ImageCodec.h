#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// A picture of this size may be decoded: there is something to see and not too much of it.
bool mayDecode(std::uint64_t width, std::uint64_t height);

struct DecodedImage {
    Ref<CGImage> image;
    UIImageOrientation orientation = UIImageOrientation::Up;
};

/// Decodes bytes of any known format, told apart by their signature. Of a damaged or truncated
/// file the part that decodes is shown, the rest is transparent; absent when nothing decodes. No
/// reader takes the memory of a picture before something of it has decoded, since a few bytes can
/// claim a hundred megapixels.
std::optional<DecodedImage> decodeImage(std::span<const std::byte> bytes);

bool hasGifSignature(std::span<const std::byte> bytes);
std::optional<DecodedImage> decodeGif(std::span<const std::byte> bytes);

bool hasJpegSignature(std::span<const std::byte> bytes);
std::optional<DecodedImage> decodeJpeg(std::span<const std::byte> bytes);

bool hasPngSignature(std::span<const std::byte> bytes);
std::optional<DecodedImage> decodePng(std::span<const std::byte> bytes);

bool hasWebpSignature(std::span<const std::byte> bytes);
std::optional<DecodedImage> decodeWebp(std::span<const std::byte> bytes);

std::optional<std::vector<std::byte>> encodePng(const CGImage& image);

inline constexpr std::size_t longestJpegSide = 65500;
/// `quality` between 0 and 1. Alpha is dropped: clear is black. The orientation goes into an EXIF
/// segment. Absent for sides that are 0 or too long.
std::optional<std::vector<std::byte>> encodeJpeg(const CGImage& image,
                                                 UIImageOrientation orientation, double quality);
/// How many bytes `encodeJpeg` gives, without keeping them; 0 where it gives none.
std::size_t jpegLength(const CGImage& image, UIImageOrientation orientation, double quality);

}  // namespace zn
