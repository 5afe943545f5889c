#pragma once

#include <vector>

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// Greys as code readers take them, row by row.
struct Sheet {
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint8_t> grays;
};

/// The picture on white, `margin` pixels of which show on every side.
inline Sheet sheetWith(const Ref<UIImage>& picture, std::size_t margin) {
    const auto& image = picture->cgImage();
    Sheet sheet{image->width() + 2 * margin, image->height() + 2 * margin, {}};
    sheet.grays.assign(sheet.width * sheet.height, 0xFF);
    for (std::size_t y = 0; y < image->height(); ++y)
        for (std::size_t x = 0; x < image->width(); ++x) {
            const std::uint32_t pixel = image->pixels()[y * image->width() + x];
            const std::uint32_t gray =
                (299 * (pixel >> 16 & 0xFF) + 587 * (pixel >> 8 & 0xFF) + 114 * (pixel & 0xFF)) /
                1000;
            sheet.grays[(y + margin) * sheet.width + x + margin] = static_cast<std::uint8_t>(gray);
        }
    return sheet;
}

}  // namespace zn
