#include <ZXing/BarcodeFormat.h>
#include <ZXing/BitMatrix.h>
#include <ZXing/MultiFormatWriter.h>
#include <benchmark/benchmark.h>
#include <qrencode.h>
#include <zint.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "zarnic/ZNQRCodeHelper.h"

using namespace zn;

namespace {

/// 200 bytes; the peers are asked for the same level.
const std::string& text() {
    static const std::string bytes = [] {
        std::string result;
        for (int i = 0; result.size() < 200; ++i)
            result += static_cast<char>('a' + i * i % 26);
        return result;
    }();
    return bytes;
}

QRcode* bareCode() {
    return QRcode_encodeData(static_cast<int>(text().size()),
                             reinterpret_cast<const unsigned char*>(text().data()), 0,
                             QR_ECLEVEL_H);
}

Ref<UIImage> ourCode() {
    static const auto on = UIColor::redColor(), off = UIColor::yellowColor();
    return ZNQRCodeHelper::CodeImageWithType(ZNQRCodeHelper::QrCode, text(), {600, 600}, on, off);
}

void requireSameModules() {
    QRcode* code = bareCode();
    const auto image = ourCode()->cgImage();
    for (int y = 0; y < code->width; ++y)
        for (int x = 0; x < code->width; ++x) {
            const auto middle = [&](int module) {
                return static_cast<std::size_t>((module + 0.5) * 600 / code->width);
            };
            const bool on = image->pixels()[middle(y) * 600 + middle(x)] == 0xFFFF0000;
            if (on != ((code->data[y * code->width + x] & 1) != 0)) {
                std::fprintf(stderr, "the codes differ\n");
                std::exit(1);
            }
        }
    QRcode_free(code);
}

void QrCode_Zarnic(benchmark::State& state) {
    requireSameModules();
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(ourCode());
}

void QrCode_Libqrencode(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state) {
        QRcode* code = bareCode();
        benchmark::DoNotOptimize(code);
        QRcode_free(code);
    }
}

/// Encoding only, as far as its interface parts it from drawing.
void QrCode_Zint(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state) {
        zint_symbol* symbol = ZBarcode_Create();
        symbol->symbology = BARCODE_QRCODE;
        symbol->option_1 = 4;
        symbol->input_mode = DATA_MODE;
        if (ZBarcode_Encode(symbol, reinterpret_cast<const unsigned char*>(text().data()),
                            static_cast<int>(text().size())) != 0)
            state.SkipWithError(symbol->errtxt);
        ZBarcode_Delete(symbol);
    }
}

void QrCode_Zxing(benchmark::State& state) {
    constexpr int levelH = 8;
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(ZXing::MultiFormatWriter(ZXing::BarcodeFormat::QRCode)
                                     .setEccLevel(levelH)
                                     .setMargin(0)
                                     .encode(text(), 600, 600));
}

BENCHMARK(QrCode_Zarnic);
BENCHMARK(QrCode_Libqrencode);
BENCHMARK(QrCode_Zint);
BENCHMARK(QrCode_Zxing);

}  // namespace
