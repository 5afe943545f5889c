#include <zbar.h>

#include "tests/graphics/CodeReaders.h"
#include "tests/graphics/Sheet.h"

namespace zn {

std::string readByZBar(const Ref<UIImage>& picture, std::size_t margin) {
    const Sheet sheet = sheetWith(picture, margin);
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    for (const auto kind : {zbar::ZBAR_QRCODE, zbar::ZBAR_CODE128}) {
        scanner.set_config(kind, zbar::ZBAR_CFG_ENABLE, 1);
        scanner.set_config(kind, zbar::ZBAR_CFG_BINARY, 1);
    }
    zbar::Image image(static_cast<unsigned>(sheet.width), static_cast<unsigned>(sheet.height),
                      "Y800", sheet.grays.data(), sheet.grays.size());
    scanner.scan(image);
    const auto first = image.symbol_begin();
    std::string bytes = first != image.symbol_end() ? first->get_data() : std::string();
    image.set_data(nullptr, 0);
    return bytes;
}

}  // namespace zn
