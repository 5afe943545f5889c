#include "zarnic/testing/Pictures.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zn {
namespace {

int component(std::uint32_t pixel, int index) {
    return static_cast<int>((pixel >> (8 * index)) & 0xff);
}

int distance(std::uint32_t left, std::uint32_t right) {
    int worst = 0;
    for (int index = 0; index < 4; ++index)
        worst = std::max(worst, std::abs(component(left, index) - component(right, index)));
    return worst;
}

bool sameSize(const CGImage& left, const CGImage& right) {
    return left.width() == right.width() && left.height() == right.height();
}

/// A quarter of the picture's lightness on white.
std::uint32_t faded(std::uint32_t pixel) {
    std::uint32_t result = 0xff000000;
    for (int index = 0; index < 3; ++index)
        result |= static_cast<std::uint32_t>(191 + component(pixel, index) / 4) << (8 * index);
    return result;
}

bool writePicture(const Ref<UIImage>& picture, const std::filesystem::path& path) {
    const auto bytes = UIImagePNGRepresentation(picture);
    if (!bytes)
        return false;
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes->data()),
               static_cast<std::streamsize>(bytes->size()));
    return static_cast<bool>(file.flush());
}

}  // namespace

PictureDifference comparePictures(const Ref<UIImage>& picture, const Ref<UIImage>& expected,
                                  const PictureTolerance& tolerance) {
    PictureDifference difference;
    if (!picture || !expected)
        difference.problem = picture ? "nothing to compare with" : "no picture";
    else if (!sameSize(*picture->cgImage(), *expected->cgImage()))
        difference.problem = "the pictures have different sizes";
    if (!difference.problem.empty())
        return difference;
    const auto left = picture->cgImage()->pixels();
    const auto right = expected->cgImage()->pixels();
    for (std::size_t index = 0; index < left.size(); ++index) {
        const int apart = distance(left[index], right[index]);
        difference.worst = std::max(difference.worst, apart);
        if (apart > tolerance.component)
            ++difference.pixels;
    }
    difference.same = static_cast<double>(difference.pixels) <=
                      tolerance.pixels * static_cast<double>(left.size());
    return difference;
}

Ref<UIImage> differencePicture(const Ref<UIImage>& picture, const Ref<UIImage>& expected,
                               int tolerance) {
    const CGImage& left = *picture->cgImage();
    const CGImage& right = *expected->cgImage();
    if (!sameSize(left, right))
        return nullptr;
    auto pixels = std::make_unique<std::uint32_t[]>(left.pixels().size());
    for (std::size_t index = 0; index < left.pixels().size(); ++index) {
        const std::uint32_t seen = left.pixels()[index];
        const bool differs = distance(seen, right.pixels()[index]) > tolerance;
        pixels[index] = differs ? 0xffff0000 : faded(seen);
    }
    return UIImage::imageWithCGImage(make<CGImage>(left.width(), left.height(), std::move(pixels)));
}

PictureDifference compareWithGolden(const Ref<UIImage>& picture, std::string_view golden,
                                    std::string_view failures, const PictureTolerance& tolerance) {
    const std::filesystem::path path(golden);
    if (std::getenv("ZARNIC_UPDATE_GOLDEN") != nullptr) {
        PictureDifference difference;
        difference.same = writePicture(picture, path);
        difference.problem = difference.same ? "" : "cannot write " + path.string();
        return difference;
    }
    const auto expected = UIImage::imageWithContentsOfFile(golden);
    const PictureDifference difference = comparePictures(picture, expected, tolerance);
    if (difference.same || !picture)
        return difference;
    const std::filesystem::path folder(failures);
    writePicture(picture, folder / path.filename());
    if (expected)
        if (const auto both = differencePicture(picture, expected, tolerance.component))
            writePicture(both, folder / (path.stem().string() + ".difference.png"));
    return difference;
}

}  // namespace zn
