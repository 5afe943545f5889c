#define ZX_USE_UTF8 1

#include <ZXing/ReadBarcode.h>

#include "tests/graphics/CodeReaders.h"
#include "tests/graphics/Sheet.h"

namespace zn {
namespace {

ZXing::Result readByZXing(const Sheet& sheet) {
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::QRCode | ZXing::BarcodeFormat::Code128);
    return ZXing::ReadBarcode(
        ZXing::ImageView(sheet.grays.data(), static_cast<int>(sheet.width),
                         static_cast<int>(sheet.height), ZXing::ImageFormat::Lum),
        hints);
}

}  // namespace

std::string readByZXing(const Ref<UIImage>& picture, std::size_t margin) {
    const auto bytes = readByZXing(sheetWith(picture, margin)).bytes();
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string textByZXing(const Ref<UIImage>& picture, std::size_t margin) {
    return readByZXing(sheetWith(picture, margin)).text();
}

}  // namespace zn
