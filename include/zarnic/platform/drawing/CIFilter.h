#pragma once

#include <string_view>

#include "zarnic/platform/drawing/CIImage.h"
#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Makes an image from inputs that are set by name. Inputs of another kind than the one named count
/// as not set. One thread at a time.
///
/// | Name | Inputs | Output |
/// |---|---|---|
/// | `CIQRCodeGenerator` | `inputMessage` (data), `inputCorrectionLevel` (text `L`, `M`, `Q` or
/// `H`; default `M`) | a QR code (ISO/IEC 18004) of the bytes, in the least version that holds
/// them: one pixel a module, black on white, no margin | | `CICode128BarcodeGenerator` |
/// `inputMessage` (data: ASCII, at most 80 characters), `inputQuietSpace` (pixels around, 0 to 20;
/// default 7), `inputBarcodeHeight` (pixels, 1 to 500; default 32) | a Code 128 bar code (ISO/IEC
/// 15417): one pixel a module, black on white | | `CIFalseColor` | `inputImage` (`CIImage`),
/// `inputColor0`, `inputColor1` (`UIColor`; default clear) | black becomes the first colour, white
/// the second, and what lies between a mixture by its brightness; alpha stays |
class ZN_EXPORT CIFilter final : public NSObject {
    ZN_OBJECT(CIFilter, NSObject)
public:
    struct Kind;
    explicit CIFilter(const Kind& kind);
    ~CIFilter() override;
    /// With its defaults set; null for an unknown name.
    static Ref<CIFilter> filterWithName(std::string_view name);

    void setDefaults();
    /// An absent value takes the input away.
    void setValue(const Value& value, std::string_view key);
    /// Null when an input is missing or cannot be held: an empty or too long message, other
    /// characters.
    Ref<CIImage> outputImage() const;

private:
    const Kind& kind_;
    Dictionary inputs_;
};

}  // namespace zn
