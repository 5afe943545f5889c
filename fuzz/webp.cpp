// Decodes hostile WebP files. Whether a picture is opaque must be told truly.

#include <algorithm>
#include <cstdlib>

#include "zarnic/platform/UIImage.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    constexpr std::uint64_t largestFuzzed = 1 << 18;
    zn::UIImage::setLargestPixelCount(largestFuzzed);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = zn::UIImage::imageWithData(std::as_bytes(std::span(data, size)));
    if (!image)
        return 0;
    const bool opaque = std::ranges::all_of(image->cgImage()->pixels(),
                                            [](std::uint32_t pixel) { return pixel >> 24 == 255; });
    if (image->cgImage()->opaque() != opaque)
        std::abort();
    return 0;
}
