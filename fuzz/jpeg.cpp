// Decodes hostile JPEG files. What decodes must also survive being written and read again.

#include "fuzz/HostilePicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = decoded(data, size);
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
