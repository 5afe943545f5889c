#pragma once

#include <algorithm>
#include <cstdlib>

#include "zarnic/platform/drawing/UIImage.h"

/// What the fuzzers of picture files share; each is a program of its own that includes this once.

/// Large pictures find nothing that small ones do not, and take their time.
extern "C" inline __attribute__((used)) int LLVMFuzzerInitialize(int*, char***) {
    constexpr std::uint64_t largestFuzzed = 1 << 18;
    zn::UIImage::setLargestPixelCount(largestFuzzed);
    return 0;
}

inline zn::Ref<zn::UIImage> decoded(const std::uint8_t* data, std::size_t size) {
    return zn::UIImage::imageWithData(std::as_bytes(std::span(data, size)));
}

/// Whether a picture is opaque must be told truly.
inline void requireTrueOpacity(const zn::UIImage& image) {
    const bool opaque = std::ranges::all_of(image.cgImage()->pixels(),
                                            [](std::uint32_t pixel) { return pixel >> 24 == 255; });
    if (image.cgImage()->opaque() != opaque)
        std::abort();
}
