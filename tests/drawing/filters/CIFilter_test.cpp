#include "zarnic/platform/drawing/CIFilter.h"

#include <gtest/gtest.h>

#include "tests/drawing/Pixels.h"
#include "zarnic/platform/drawing/UIColor.h"

namespace zn {
namespace {

Value bytes(std::string_view text) {
    return Value::data(std::as_bytes(std::span(text)));
}

Ref<CIImage> code(std::string_view filterName, std::string_view message, std::string_view key,
                  const Value& value) {
    const auto filter = CIFilter::filterWithName(filterName);
    filter->setValue(bytes(message), "inputMessage");
    filter->setValue(value, key);
    return filter->outputImage();
}

TEST(CIFilter, KnowsItsNames) {
    EXPECT_TRUE(CIFilter::filterWithName("CIQRCodeGenerator"));
    EXPECT_FALSE(CIFilter::filterWithName("CIGaussianBlur"));
    EXPECT_FALSE(CIFilter::filterWithName(""));
}

/// The byte capacities of version 5 at each level.
TEST(CIFilter, QrLevelsHoldTheirShare) {
    const std::pair<const char*, std::size_t> cases[] = {
        {"L", 106}, {"M", 84}, {"Q", 60}, {"H", 44}, {"?", 84}};
    for (const auto& [level, capacity] : cases) {
        const auto width = [&](std::size_t length) {
            return code("CIQRCodeGenerator", std::string(length, 'x'), "inputCorrectionLevel",
                        level)
                ->extent()
                .width();
        };
        EXPECT_EQ(width(capacity), 37) << level;
        EXPECT_EQ(width(capacity + 1), 41) << level;
    }
}

TEST(CIFilter, BarCodesHaveTheirQuietSpaceAllAround) {
    const auto size = [](std::string_view key, const Value& value) {
        return code("CICode128BarcodeGenerator", "abc", key, value)->extent().size;
    };
    EXPECT_EQ(size("other", Value()), (Size{68 + 14, 32 + 14}));
    EXPECT_EQ(size("inputQuietSpace", 0), (Size{68, 32}));
    EXPECT_EQ(size("inputQuietSpace", -4), (Size{68, 32}));
    EXPECT_EQ(size("inputBarcodeHeight", 5), (Size{68 + 14, 5 + 14}));
    EXPECT_EQ(size("inputBarcodeHeight", 1e9), (Size{68 + 14, 500 + 14}));
}

TEST(CIFilter, DefaultsComeBackAndInputsGo) {
    const auto filter = CIFilter::filterWithName("CIQRCodeGenerator");
    filter->setValue(bytes("x"), "inputMessage");
    EXPECT_TRUE(filter->outputImage());
    filter->setValue(Value(), "inputMessage");
    EXPECT_FALSE(filter->outputImage());
    filter->setValue("a text is no data", "inputMessage");
    EXPECT_FALSE(filter->outputImage());
    filter->setValue(bytes("x"), "inputMessage");
    filter->setDefaults();
    EXPECT_FALSE(filter->outputImage());
}

TEST(CIFilter, FalseColourMixesByBrightnessAndKeepsAlpha) {
    const auto filter = CIFilter::filterWithName("CIFalseColor");
    EXPECT_FALSE(filter->outputImage());
    filter->setValue(CIImage::imageWithCGImage(imageOf(3, 2,
                                                       {0xFF000000, 0xFFFFFFFF, 0xFF808080,  //
                                                        0x00000000, 0x80808080, 0xFF00FF00})),
                     "inputImage");
    filter->setValue(UIColor::redColor(), "inputColor0");
    filter->setValue(UIColor::colorWithRed(0, 0, 1, 0.5), "inputColor1");
    const auto image = filter->outputImage()->cgImage();
    EXPECT_EQ(pixelAt(image, 0, 0), "ffff0000");
    EXPECT_EQ(pixelAt(image, 1, 0), "80000080");
    EXPECT_EQ(pixelAt(image, 2, 0), "bf7f0040");
    EXPECT_EQ(pixelAt(image, 0, 1), "00000000");
    EXPECT_EQ(pixelAt(image, 1, 1), "40000040") << "half a white";
    EXPECT_EQ(pixelAt(image, 2, 1), "b469004b") << "green is 150 bright";
}

}  // namespace
}  // namespace zn
