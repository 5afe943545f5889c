#include "bench/ZarnicScene.h"

#include <algorithm>
#include <string>

#include "bench/Scene.h"
#include "zarnic/UILabel+ZNCategory.h"
#include "zarnic/UIView+ZNCategory.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UIViewController.h"

using namespace zn;

namespace bench {
namespace {

Ref<UIColor> colorOfHue(double hue) {
    const auto part = [hue](double shift) {
        const double place = std::abs(std::fmod(hue / 60 + shift, 6) - 3) - 1;
        return 0.78 * (1 - 0.59 * (1 - std::clamp(place, 0.0, 1.0)));
    };
    return UIColor::colorWithRed(part(0), part(4), part(2), 1);
}

Ref<UIView> box(int index) {
    const double x = index % scene::columns * scene::cellWidth + scene::gap;
    const double y = index / scene::columns * scene::cellHeight + scene::gap;
    const Rect frame(x, y, scene::cellWidth - 2 * scene::gap, scene::cellHeight - 2 * scene::gap);
    const auto view = ZN_ViewWithColor(colorOfHue(index * 6), frame);
    view->layer()->setCornerRadius(scene::radius);
    const auto label = ZN_LabelWithColor(nullptr, "Box " + std::to_string(index),
                                         UIFont::systemFontOfSize(scene::fontSize),
                                         UIColor::whiteColor(), view->bounds());
    label->setTextAlignment(NSTextAlignment::Center);
    view->addSubview(label);
    return view;
}

Ref<UIWindow> toastWindow() {
    const auto window =
        make<UIWindow>(Rect(scene::toastX, scene::toastY, scene::toastWidth, scene::toastHeight));
    const auto backdrop = ZN_ViewWithColor(UIColor::blackColor(), window->bounds());
    backdrop->layer()->setCornerRadius(scene::radius);
    backdrop->setAlpha(0.74);
    window->addSubview(backdrop);
    const auto label = ZN_LabelWithColor(nullptr, scene::toastText, UIFont::systemFontOfSize(15),
                                         UIColor::whiteColor(), window->bounds());
    label->setTextAlignment(NSTextAlignment::Center);
    window->addSubview(label);
    zn_AddShadowEffectColor(window, UIColor::colorWithRed(0, 0, 0, 0.6), Size{0, 16}, 21, 1);
    return window;
}

/// The peer's scene has no status bar.
class FullScreenController : public UIViewController {
public:
    bool prefersStatusBarHidden() const override { return true; }
};

}  // namespace

ZarnicScene& ZarnicScene::shared() {
    static auto& scene = *new ZarnicScene;
    return scene;
}

ZarnicScene::ZarnicScene() {
    window_ = make<UIWindow>(UIScreen::mainScreen()->bounds());
    window_->setBackgroundColor(UIColor::whiteColor());
    const auto controller = make<FullScreenController>();
    window_->setRootViewController(controller);
    for (int index = 0; index < scene::columns * scene::rows; ++index)
        controller->view()->addSubview(box(index));
    window_->setHidden(false);
    toast_ = toastWindow();
    NSRunLoop::mainRunLoop()->runPass();
}

void ZarnicScene::paintAll() {
    toast_->setHidden(true);
    host_.screen().compositor().invalidate();
    host_.screen().paint();
}

void ZarnicScene::paintToast(double opacity) {
    toast_->setHidden(false);
    toast_->setAlpha(opacity);
    host_.screen().paint();
}

}  // namespace bench
