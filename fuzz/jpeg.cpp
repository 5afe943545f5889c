// Decodes hostile JPEG files. What decodes must also survive being written and read again.

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
    const auto jpeg = zn::UIImageJPEGRepresentation(image, 1);
    if (image->jpegByteCount() != static_cast<std::int64_t>(jpeg ? jpeg->size() : 0))
        std::abort();
    constexpr std::size_t longestSide = 65500;
    if (!jpeg && std::max(image->cgImage()->width(), image->cgImage()->height()) > longestSide)
        return 0;
    const auto again = jpeg ? zn::UIImage::imageWithData(*jpeg) : nullptr;
    if (!again || again->imageOrientation() != image->imageOrientation() ||
        again->size() != image->size())
        std::abort();
    return 0;
}
