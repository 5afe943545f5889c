#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// How two pictures may differ and still count as the same.
struct PictureTolerance {
    /// The largest difference of a colour component, of 255, that counts as none.
    int component = 8;
    /// The part of the pixels, between 0 and 1, that may differ by more.
    double pixels = 0.001;
};

struct PictureDifference {
    bool same = false;
    /// Pixels that differ by more than the tolerated component.
    std::size_t pixels = 0;
    /// The largest difference of a component.
    int worst = 0;
    /// Different sizes, a missing file, ...; empty when the pictures could be compared.
    std::string problem;
};

ZN_EXPORT PictureDifference comparePictures(const Ref<UIImage>& picture,
                                            const Ref<UIImage>& expected,
                                            const PictureTolerance& tolerance = {});

/// Both pictures faded, what differs in red; null when their sizes differ.
ZN_EXPORT Ref<UIImage> differencePicture(const Ref<UIImage>& picture, const Ref<UIImage>& expected,
                                         int tolerance);

/// Compares with a golden PNG file. Where they differ, the picture and the difference are written
/// beside each other into `failures` (a folder, made when needed). With `ZARNIC_UPDATE_GOLDEN` set
/// in the environment the golden file is written instead.
ZN_EXPORT PictureDifference compareWithGolden(const Ref<UIImage>& picture, std::string_view golden,
                                              std::string_view failures,
                                              const PictureTolerance& tolerance = {});

}  // namespace zn
