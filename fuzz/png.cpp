// Decodes hostile pictures. What decodes must also survive being written and read again.

#include <algorithm>
#include <cstdlib>

#include "zarnic/platform/UIImage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = zn::UIImage::imageWithData(std::as_bytes(std::span(data, size)));
    constexpr std::size_t largestRewritten = 1 << 20;
    if (!image || image->cgImage()->byteCount() > largestRewritten)
        return 0;
    const auto png = zn::UIImagePNGRepresentation(image);
    const auto again = png ? zn::UIImage::imageWithData(*png) : nullptr;
    if (!again || !std::ranges::equal(again->cgImage()->pixels(), image->cgImage()->pixels()))
        std::abort();
    return 0;
}
