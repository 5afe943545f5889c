// Decodes hostile pictures. What decodes must also survive being written and read again.

#include "fuzz/HostilePicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = decoded(data, size);
    if (!image)
        return 0;
    const auto png = zn::UIImagePNGRepresentation(image);
    const auto again = png ? zn::UIImage::imageWithData(*png) : nullptr;
    if (!again || !std::ranges::equal(again->cgImage()->pixels(), image->cgImage()->pixels()))
        std::abort();
    return 0;
}
