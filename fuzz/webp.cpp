// Decodes hostile WebP files.

#include "fuzz/HostilePicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (const auto image = decoded(data, size))
        requireTrueOpacity(*image);
    return 0;
}
