#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "zarnic/platform/drawing/CIImage.h"
#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/Value.h"

/// Frees memory that came from `malloc`: the release callback of a data provider. `info` and `size`
/// are not used.
extern "C" ZN_EXPORT void ProviderReleaseData(void* info, const void* data, std::size_t size);

namespace zn {

/// QR codes and Code 128 bar codes as pictures. Any thread. An absent colour is clear. Codes fill
/// their picture to the edge: readers want a light margin of four modules around a QR code and of
/// ten beside a bar code.
class ZN_EXPORT ZNQRCodeHelper : public NSObject {
    ZN_OBJECT(ZNQRCodeHelper, NSObject)
public:
    /// What `CodeImageWithType` takes.
    static constexpr std::int64_t QrCode = 0;
    static constexpr std::int64_t BarCode = 1;

    /// The one instance.
    static Ref<ZNQRCodeHelper> SharedHelper();

    /// A code of the text, stretched over the size (points, at one pixel each), its modules in the
    /// first colour and what is between them in the second. A QR code is as high as wide, whatever
    /// the height. A text that the code cannot hold, or another type, leaves the picture blank.
    /// Null for a size without area, and, with a line in the log, for content that is no text or an
    /// empty one.
    static Ref<UIImage> CodeImageWithType(std::int64_t type, const Value& content, Size size,
                                          const Ref<UIColor>& onColor,
                                          const Ref<UIColor>& offColor);

    /// One pixel a module, black on white, without a margin, at error correction level H: up to
    /// 1,273 bytes of UTF-8. Null for a longer or empty text.
    static Ref<CIImage> QrCodeImageWithContent(std::string_view content);
    /// One pixel a module, 32 high, black on white, without a margin: up to 80 ASCII characters.
    /// Null for any other text.
    static Ref<CIImage> BarCodeImageWithContent(std::string_view content);

    /// The code stretched over the size, sharp at every size: black in the first colour, white in
    /// the second. Blank without a code.
    static Ref<UIImage> CodeFillColorWithImage(const Ref<CIImage>& image, Size size,
                                               const Ref<UIColor>& onColor,
                                               const Ref<UIColor>& offColor);
    /// The code in greys, sharp, as large as it fits into the size in its own proportions; sides
    /// are cut to whole pixels. Null without a code, or where none of it fits.
    static Ref<UIImage> CodeChangeScaleWithImage(const Ref<CIImage>& image, Size size);
    /// The picture in two opaque colours, a pixel a point: the first for each pixel darker than the
    /// grey 153, the second for the others. Red decides, then green, then blue. What is clear
    /// counts as black. Null without a picture.
    static Ref<UIImage> CodeChangeColorWithImage(const Ref<UIImage>& image,
                                                 const Ref<UIColor>& onColor,
                                                 const Ref<UIColor>& offColor);
};

}  // namespace zn
