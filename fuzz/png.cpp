// Decodes hostile pictures. What decodes must also survive being written and read again.

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
    const auto png = zn::UIImagePNGRepresentation(image);
    const auto again = png ? zn::UIImage::imageWithData(*png) : nullptr;
    if (!again || !std::ranges::equal(again->cgImage()->pixels(), image->cgImage()->pixels()))
        std::abort();
    return 0;
}
