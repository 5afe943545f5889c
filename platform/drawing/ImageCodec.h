#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "zarnic/platform/UIImage.h"

namespace zn {

/// No picture of more pixels is decoded.
inline constexpr std::uint64_t largestPixelCount = 100'000'000;

struct DecodedImage {
    Ref<CGImage> image;
    UIImageOrientation orientation = UIImageOrientation::Up;
};

/// Decodes bytes of any known format, told apart by their signature. Of a damaged or truncated
/// file the part that decodes is shown, the rest is transparent; absent when nothing decodes.
std::optional<DecodedImage> decodeImage(std::span<const std::byte> bytes);

bool hasPngSignature(std::span<const std::byte> bytes);
std::optional<DecodedImage> decodePng(std::span<const std::byte> bytes);
std::optional<std::vector<std::byte>> encodePng(const CGImage& image);

}  // namespace zn
