#include "CodesPage.h"

#include <zarnic/UIColor+ZNCategory.h>
#include <zarnic/ZNQRCodeHelper.h>

#include <array>

#include "Chooser.h"
#include "Theme.h"
#include "Tiles.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double side = 140;
constexpr double barHeight = 76;

struct Sample {
    const char* name;
    const char* qrText;
    const char* barText;
};

constexpr std::array samples{
    Sample{"Link", "https://example.org/zarnic?page=codes", "ZARNIC-2026-0042"},
    Sample{"中文", "触摸应用：扫一扫，加好友", "6901234567892"},
    Sample{"Long",
           "A touch application is mostly waiting: a prompt stays for two seconds, fades for a "
           "quarter, a list glides to rest. Here all time comes from one clock.",
           "A1b2C3d4-0123456789-xyz"},
};

constexpr std::array colors{"#1B1F27", "#2660E0", "#0E7C7B", "#B3261E", "#7C3AED"};

Ref<UIImageView> emptyView(Size size) {
    return make<UIImageView>(Rect(Point{}, size));
}

}  // namespace

void CodesPage::init() {
    PageController::init();
    setTitle("Codes");
}

void CodesPage::build() {
    qrCode_ = emptyView({side, side});
    recolored_ = emptyView({side, side});
    barCode_ = emptyView({contentWidth() - 2 * theme::padding, barHeight});
    const WeakRef<CodesPage> weak = ref(this);
    const auto choice = [weak](std::size_t CodesPage::*member) {
        return [weak, member](std::size_t index) {
            if (const auto page = weak.lock()) {
                (*page).*member = index;
                page->refresh();
            }
        };
    };
    std::vector<Chooser::Option> texts, swatches;
    for (const Sample& sample : samples)
        texts.push_back({sample.name, nullptr});
    for (const char* color : colors)
        swatches.push_back({{}, ZN_ColorWithHexString(color)});
    addHeading("TEXT AND COLOUR");
    add(make<Chooser>(contentWidth(), texts, choice(&CodesPage::text_)));
    add(make<Chooser>(contentWidth(), swatches, choice(&CodesPage::color_)));
    add(tileRow(contentWidth(), side, {{qrCode_, "QR code"}, {recolored_, "Recoloured"}}));
    add(tileRow(contentWidth(), barHeight, {{barCode_, "Code 128"}}));
}

void CodesPage::refresh() {
    const Sample& sample = samples[text_];
    const auto on = ZN_ColorWithHexString(colors[color_]);
    const auto card = theme::card();
    // Twice as many pixels as points, for the sharpest edges on most screens.
    const auto code = ZNQRCodeHelper::CodeImageWithType(ZNQRCodeHelper::QrCode, sample.qrText,
                                                        {2 * side, 2 * side}, on, card);
    qrCode_->setImage(code);
    recolored_->setImage(ZNQRCodeHelper::CodeChangeColorWithImage(
        code, ZN_ColorWithHexString("#C2410C"), ZN_ColorWithHexString("#FFF4E5")));
    const Size bar = barCode_->bounds().size;
    barCode_->setImage(ZNQRCodeHelper::CodeImageWithType(
        ZNQRCodeHelper::BarCode, sample.barText, {2 * bar.width, 2 * bar.height}, on, card));
}

}  // namespace gallery
