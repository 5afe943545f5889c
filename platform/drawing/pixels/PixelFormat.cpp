#include "platform/drawing/pixels/PixelFormat.h"

#include <utility>

namespace zn {

namespace {

// The platform's bitmap information: alpha kind in the low five bits, byte order in bits 12 to 14.
enum AlphaInfo : std::uint32_t {
    None = 0,
    PremultipliedLast = 1,
    PremultipliedFirst = 2,
    Last = 3,
    First = 4,
    NoneSkipLast = 5,
    NoneSkipFirst = 6,
};
constexpr std::uint32_t alphaMask = 0x1F;
constexpr std::uint32_t order32Little = 0x2000;
constexpr std::uint32_t order32Big = 0x4000;

std::uint32_t at(const std::byte* bytes, std::uint8_t index) {
    return std::to_integer<std::uint32_t>(bytes[index]);
}

}  // namespace

std::optional<PixelFormat> PixelFormat::of(CGColorSpace space, std::uint32_t bitmapInfo) {
    const std::uint32_t alpha = bitmapInfo & alphaMask;
    const std::uint32_t order = bitmapInfo & ~alphaMask;
    PixelFormat format;
    if (space == CGColorSpace::DeviceGray) {
        format.gray_ = true;
        return alpha == None && order == 0 ? std::optional(format) : std::nullopt;
    }
    if (alpha == None || alpha > NoneSkipFirst ||
        (order != 0 && order != order32Little && order != order32Big))
        return std::nullopt;
    if (alpha == PremultipliedLast || alpha == PremultipliedFirst)
        format.alpha_ = Alpha::Premultiplied;
    else if (alpha == Last || alpha == First)
        format.alpha_ = Alpha::Straight;
    if (alpha == PremultipliedFirst || alpha == First || alpha == NoneSkipFirst) {
        format.fourth_ = 0;
        format.red_ = 1;
        format.green_ = 2;
        format.blue_ = 3;
    }
    if (order == order32Little)
        for (std::uint8_t* place : {&format.red_, &format.green_, &format.blue_, &format.fourth_})
            *place = static_cast<std::uint8_t>(3 - *place);
    return format;
}

std::uint32_t PixelFormat::readPixel(const std::byte* bytes) const {
    if (gray_)
        return 0xFF000000 | at(bytes, 0) * 0x010101;
    std::uint32_t red = at(bytes, red_), green = at(bytes, green_), blue = at(bytes, blue_);
    const std::uint32_t alpha = hasAlpha() ? at(bytes, fourth_) : 0xFF;
    if (alpha_ == Alpha::Straight)
        for (std::uint32_t* channel : {&red, &green, &blue})
            *channel = premultiplied(*channel, alpha);
    return alpha << 24 | red << 16 | green << 8 | blue;
}

void PixelFormat::writePixel(std::uint32_t pixel, std::byte* bytes) const {
    if (gray_) {
        bytes[0] = static_cast<std::byte>(luma(pixel));
        return;
    }
    const std::uint32_t alpha = hasAlpha() ? pixel >> 24 : 0xFF;
    const auto channel = [&](int shift) {
        const std::uint32_t value = pixel >> shift & 0xFF;
        return static_cast<std::byte>(alpha_ == Alpha::Straight ? straight(value, alpha) : value);
    };
    bytes[red_] = channel(16);
    bytes[green_] = channel(8);
    bytes[blue_] = channel(0);
    bytes[fourth_] = static_cast<std::byte>(alpha);
}

void PixelFormat::read(const std::byte* row, std::span<std::uint32_t> pixels) const {
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = readPixel(row + i * bytesPerPixel());
}

void PixelFormat::write(std::span<const std::uint32_t> pixels, std::byte* row) const {
    for (std::size_t i = 0; i < pixels.size(); ++i)
        writePixel(pixels[i], row + i * bytesPerPixel());
}

}  // namespace zn
