#include <ZXing/BarcodeFormat.h>
#include <ZXing/BitMatrix.h>
#include <ZXing/MultiFormatWriter.h>

#include <algorithm>
#include <exception>
#include <optional>
#include <string>

#include "platform/drawing/filters/CodeGenerators.h"

namespace zn {

namespace {

constexpr std::uint32_t black = 0xFF000000, white = 0xFFFFFFFF;

/// The writer takes some letters beyond ASCII for control functions.
bool canBeHeld(std::span<const std::byte> message) {
    return !message.empty() && message.size() <= longestCode128 &&
           std::ranges::all_of(message, [](std::byte unit) { return unit < std::byte{0x80}; });
}

std::optional<ZXing::BitMatrix> bars(std::span<const std::byte> message) {
    const std::string text(reinterpret_cast<const char*>(message.data()), message.size());
    try {
        return ZXing::MultiFormatWriter(ZXing::BarcodeFormat::Code128)
            .setMargin(0)
            .encode(text, 0, 1);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace

Ref<CGImage> code128(std::span<const std::byte> message, int quietSpace, int height) {
    const auto modules = canBeHeld(message) ? bars(message) : std::nullopt;
    if (!modules)
        return nullptr;
    const auto quiet = static_cast<std::size_t>(quietSpace);
    const auto count = static_cast<std::size_t>(modules->width());
    const std::size_t width = count + 2 * quiet;
    const std::size_t rows = static_cast<std::size_t>(height) + 2 * quiet;
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(width * rows);
    std::fill_n(pixels.get(), width * rows, white);
    for (std::size_t y = quiet; y < rows - quiet; ++y)
        for (std::size_t x = 0; x < count; ++x)
            if (modules->get(static_cast<int>(x), 0))
                pixels[y * width + quiet + x] = black;
    return make<CGImage>(width, rows, std::move(pixels));
}

}  // namespace zn
