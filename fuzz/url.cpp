// Splits hostile texts into the parts of a URL and, with the scanner, into pieces, of which none
// may be lost.

#include <cstdint>
#include <cstdlib>

#include "zarnic/platform/foundation/NSScanner.h"
#include "zarnic/platform/foundation/NSString.h"
#include "zarnic/platform/foundation/NSURL.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto url = zn::NSURL::URLWithString(text)) {
        if (url->absoluteString() != text || !zn::isValidUTF8(url->path().value_or("")))
            std::abort();
        if (url->host() && !zn::isValidUTF8(*url->host()))
            std::abort();
    }
    const auto separators = zn::NSCharacterSet::charactersInString("&;é");
    zn::NSScanner scanner(text);
    scanner.setCharactersToBeSkipped({});
    std::size_t scanned = 0;
    while (!scanner.isAtEnd()) {
        auto piece = scanner.scanUpToCharactersFromSet(separators);
        if (!piece)
            piece = scanner.scanCharactersFromSet(separators);
        if (!piece)
            std::abort();
        scanned += piece->size();
    }
    zn::NSScanner(text).scanHexInt();
    return scanned == size ? 0 : (std::abort(), 1);
}
