#include <gtest/gtest.h>

#include <random>

#include "tests/graphics/CodeReaders.h"
#include "zarnic/ZNQRCodeHelper.h"

namespace zn {
namespace {

constexpr std::size_t qrCapacity = 1273, code128Capacity = 80;

class CodeSource {
public:
    explicit CodeSource(unsigned seed) : random_(seed) {}

    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random_);
    }

    std::string ascii(std::size_t length) {
        std::string text;
        while (text.size() < length)
            text += static_cast<char>(number(0x20, 0x7E));
        return text;
    }

    /// Letters of one to four bytes, no longer than `most` bytes.
    std::string utf8(std::size_t most) {
        static const char* const pieces[] = {"a",  "7",  "é", "ß", "ж", "中",
                                             "文", "码", "€", "😀", "𝄞"};
        std::string text;
        for (std::string next = "中"; text.size() + next.size() <= most;
             next = pieces[number(0, std::size(pieces) - 1)])
            text += next;
        return text;
    }

    /// Digits come in runs, which change the code set; control characters, too.
    std::string code128Text(std::size_t length) {
        std::string text;
        while (text.size() < length) {
            const int kind = number(0, 5);
            const int run = number(1, 9);
            for (int i = 0; i < run && text.size() < length; ++i)
                text += static_cast<char>(kind < 3   ? number('0', '9')
                                          : kind < 5 ? number(0x20, 0x7E)
                                                     : number(1, 0x1F));
        }
        return text;
    }

    /// Dark enough for a reader beside the light ones.
    Ref<UIColor> dark() { return color(0, 90); }
    Ref<UIColor> light() { return color(200, 255); }

private:
    Ref<UIColor> color(int least, int most) {
        const auto part = [&] { return number(least, most) / 255.0; };
        const double red = part(), green = part(), blue = part();
        return UIColor::colorWithRed(red, green, blue, 1);
    }

    std::mt19937 random_;
};

std::string qrText(CodeSource& source, int turn) {
    switch (turn % 8) {
        case 0:
            return source.utf8(qrCapacity);
        case 1:
            return source.ascii(qrCapacity);
        case 2:
        case 3:
            return source.ascii(static_cast<std::size_t>(source.number(1, 300)));
        default:
            return source.utf8(static_cast<std::size_t>(source.number(3, 200)));
    }
}

/// A size for so many modules of at least so many pixels each; one more where they are uneven.
double lengthFor(double modules, int least, bool even, CodeSource& source) {
    return even ? modules * source.number(least, least + 3)
                : std::ceil(modules * (least + 1 + source.number(1, 30) / 10.0));
}

/// Where all modules are equally wide both readers must see the text. Where some are a pixel wider,
/// one of them may lose its way (they estimate how many modules there are), but never both.
void expectRead(const Ref<UIImage>& picture, std::size_t margin, const std::string& text,
                bool even) {
    const std::string first = readByZXing(picture, margin);
    const std::string second = readByZBar(picture, margin);
    const Size size = picture->size();
    if (even) {
        EXPECT_EQ(first, text) << size.width << 'x' << size.height;
        EXPECT_EQ(second, text) << size.width << 'x' << size.height;
    } else {
        EXPECT_TRUE(first == text || second == text) << text << size.width << 'x' << size.height;
    }
}

void roundTripQr(CodeSource& source, int turn) {
    const std::string text = qrText(source, turn);
    const bool even = source.number(0, 1) == 0;
    const double modules = ZNQRCodeHelper::QrCodeImageWithContent(text)->extent().width();
    const double side = lengthFor(modules, 3, even, source);
    const auto picture = ZNQRCodeHelper::CodeImageWithType(
        ZNQRCodeHelper::QrCode, text, {side, side}, source.dark(), source.light());
    expectRead(picture, static_cast<std::size_t>(4 * side / modules) + 4, text, even);
}

void roundTripCode128(CodeSource& source, int turn) {
    const auto length =
        turn % 8 == 0 ? code128Capacity : static_cast<std::size_t>(source.number(1, 60));
    const std::string text = source.code128Text(length);
    const bool even = source.number(0, 1) == 0;
    const double modules = ZNQRCodeHelper::BarCodeImageWithContent(text)->extent().width();
    const double width = lengthFor(modules, 2, even, source);
    const double height = 40.0 + source.number(0, 60);
    const auto picture = ZNQRCodeHelper::CodeImageWithType(
        ZNQRCodeHelper::BarCode, text, {width, height}, source.dark(), source.light());
    expectRead(picture, 60, text, even);
}

TEST(CodeRoundTrip, ReadersSeeQrCodesOfEveryTextSizeAndColour) {
    CodeSource source(1);
    for (int turn = 0; turn < 24; ++turn)
        roundTripQr(source, turn);
}

TEST(CodeRoundTrip, ReadersSeeBarCodesOfEveryTextSizeAndColour) {
    CodeSource source(2);
    for (int turn = 0; turn < 100; ++turn)
        roundTripCode128(source, turn);
}

TEST(CodeRoundTrip, ChineseReadsBackAsChinese) {
    const auto black = UIColor::blackColor(), white = UIColor::whiteColor();
    for (const char* text : {"中", "触摸应用", "二维码：扫一扫 https://example.org/路径?名=值"})
        EXPECT_EQ(
            textByZXing(ZNQRCodeHelper::CodeImageWithType(0, text, {300, 300}, black, white), 40),
            text);
}

TEST(CodeRoundTrip, EveryByteIsHeldTheZeroByteToo) {
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        bytes += static_cast<char>(value);
    const auto picture = ZNQRCodeHelper::CodeImageWithType(
        0, bytes, {500, 500}, UIColor::blackColor(), UIColor::whiteColor());
    EXPECT_EQ(readByZXing(picture, 40), bytes);
}

TEST(CodeRoundTrip, OneBeyondTheCapacityIsNoCode) {
    CodeSource source(3);
    EXPECT_TRUE(ZNQRCodeHelper::QrCodeImageWithContent(source.ascii(qrCapacity)));
    EXPECT_FALSE(ZNQRCodeHelper::QrCodeImageWithContent(source.ascii(qrCapacity + 1)));
    EXPECT_FALSE(ZNQRCodeHelper::QrCodeImageWithContent(std::string(1 << 20, 'x')));
    EXPECT_TRUE(ZNQRCodeHelper::BarCodeImageWithContent(source.ascii(code128Capacity)));
    EXPECT_FALSE(ZNQRCodeHelper::BarCodeImageWithContent(source.ascii(code128Capacity + 1)));
}

TEST(CodeRoundTripSoak, TwoThousandTextsOfEachKind) {
    CodeSource source(4);
    for (int turn = 0; turn < 2000; ++turn) {
        roundTripQr(source, turn);
        roundTripCode128(source, turn);
    }
}

}  // namespace
}  // namespace zn
