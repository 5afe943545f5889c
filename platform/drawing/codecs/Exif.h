#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// How EXIF (CIPA DC-008, tag 0x0112) numbers the ways to turn a picture: 1 to 8.
std::uint8_t exifNumber(UIImageOrientation orientation);

/// What EXIF data, from their mark of the byte order on, say about it; upright when they are broken
/// or say nothing.
UIImageOrientation exifOrientation(std::span<const std::byte> data);

/// The same for data that begin with the word "Exif", as in JPEG, or without it.
UIImageOrientation exifOrientationOfSegment(std::span<const std::byte> segment);

}  // namespace zn
