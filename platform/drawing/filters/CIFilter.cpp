#include "zarnic/platform/drawing/CIFilter.h"

#include <algorithm>

#include "platform/drawing/filters/CodeGenerators.h"
#include "platform/drawing/filters/FalseColor.h"
#include "zarnic/platform/drawing/UIColor.h"

namespace zn {

struct CIFilter::Kind {
    std::string_view name;
    Dictionary (*defaults)();
    Ref<CGImage> (*output)(const Dictionary& inputs);
};

namespace {

int clampedNumber(const Value& number, int least, int most) {
    return std::clamp(number.intValue(), least, most);
}

Dictionary qrDefaults() {
    return {{"inputCorrectionLevel", "M"}};
}

Ref<CGImage> qrOutput(const Dictionary& inputs) {
    return qrCode(inputs["inputMessage"].bytes(), inputs["inputCorrectionLevel"].string());
}

Dictionary code128Defaults() {
    return {{"inputQuietSpace", 7}, {"inputBarcodeHeight", 32}};
}

Ref<CGImage> code128Output(const Dictionary& inputs) {
    return code128(inputs["inputMessage"].bytes(), clampedNumber(inputs["inputQuietSpace"], 0, 20),
                   clampedNumber(inputs["inputBarcodeHeight"], 1, 500));
}

Dictionary noDefaults() {
    return {};
}

CGColor colorIn(const Value& value) {
    const auto color = value.object<UIColor>();
    return color ? color->cgColor() : CGColor();
}

Ref<CGImage> falseColorOutput(const Dictionary& inputs) {
    const auto image = inputs["inputImage"].object<CIImage>();
    return image ? falseColored(*image->cgImage(), colorIn(inputs["inputColor0"]),
                                colorIn(inputs["inputColor1"]))
                 : nullptr;
}

constexpr CIFilter::Kind kinds[] = {
    {"CIQRCodeGenerator", qrDefaults, qrOutput},
    {"CICode128BarcodeGenerator", code128Defaults, code128Output},
    {"CIFalseColor", noDefaults, falseColorOutput},
};

}  // namespace

CIFilter::CIFilter(const Kind& kind) : kind_(kind), inputs_(kind.defaults()) {}

CIFilter::~CIFilter() = default;

Ref<CIFilter> CIFilter::filterWithName(std::string_view name) {
    const auto* const kind = std::ranges::find(kinds, name, &Kind::name);
    return kind == std::end(kinds) ? nullptr : make<CIFilter>(*kind);
}

void CIFilter::setDefaults() {
    inputs_ = kind_.defaults();
}

void CIFilter::setValue(const Value& value, std::string_view key) {
    if (value.absent())
        inputs_.remove(key);
    else
        inputs_.set(key, value);
}

Ref<CIImage> CIFilter::outputImage() const {
    return CIImage::imageWithCGImage(kind_.output(inputs_));
}

}  // namespace zn
