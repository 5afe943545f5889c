#include <qrencode.h>

#include "platform/drawing/filters/CodeGenerators.h"

namespace zn {

namespace {

constexpr std::uint32_t black = 0xFF000000, white = 0xFFFFFFFF;

struct CodeDeleter {
    void operator()(QRcode* code) const { QRcode_free(code); }
};

QRecLevel levelNamed(std::string_view name) {
    return name == "L"   ? QR_ECLEVEL_L
           : name == "Q" ? QR_ECLEVEL_Q
           : name == "H" ? QR_ECLEVEL_H
                         : QR_ECLEVEL_M;
}

}  // namespace

Ref<CGImage> qrCode(std::span<const std::byte> message, std::string_view level) {
    // As bytes in every case, so that a text has one version whatever its characters are.
    constexpr int leastVersion = 0;
    constexpr std::size_t mostBytes = QRSPEC_VERSION_MAX * 100UL;
    if (message.empty() || message.size() > mostBytes)
        return nullptr;
    const std::unique_ptr<QRcode, CodeDeleter> code(QRcode_encodeData(
        static_cast<int>(message.size()), reinterpret_cast<const unsigned char*>(message.data()),
        leastVersion, levelNamed(level)));
    if (!code)
        return nullptr;
    const auto side = static_cast<std::size_t>(code->width);
    auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(side * side);
    for (std::size_t i = 0; i < side * side; ++i)
        pixels[i] = (code->data[i] & 1) != 0 ? black : white;
    return make<CGImage>(side, side, std::move(pixels));
}

}  // namespace zn
