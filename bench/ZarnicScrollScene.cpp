#include "bench/ZarnicScrollScene.h"

#include "bench/ScrollScene.h"
#include "bench/ZarnicScene.h"
#include "zarnic/UILabel+ZNCategory.h"
#include "zarnic/UIView+ZNCategory.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/host/HeadlessHost.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/platform/uikit/UIViewController.h"

using namespace zn;

namespace bench {
namespace {

Ref<UILabel> label(const std::string& text, double size, double gray, NSTextAlignment alignment) {
    const auto view = ZN_LabelWithColor(
        nullptr, text, UIFont::systemFontOfSize(size), UIColor::colorWithRed(gray, gray, gray, 1),
        Rect(scroll::margin, 0, scroll::width - 2 * scroll::margin, scroll::rowHeight - 1));
    view->setTextAlignment(alignment);
    return view;
}

Ref<UIView> row(int index) {
    const auto view =
        ZN_ViewWithColor(UIColor::whiteColor(),
                         Rect(0, index * scroll::rowHeight, scroll::width, scroll::rowHeight));
    view->addSubview(label(scroll::title(index), scroll::titleSize, 0.1, NSTextAlignment::Left));
    view->addSubview(label(scroll::detail(index), scroll::detailSize, 0.4, NSTextAlignment::Right));
    view->addSubview(ZN_ViewWithColor(
        UIColor::colorWithRed(0.8, 0.8, 0.8, 1),
        Rect(scroll::margin, scroll::rowHeight - 1, scroll::width - scroll::margin, 1)));
    return view;
}

/// The peer's page has no status bar.
class FullScreenController : public UIViewController {
public:
    bool prefersStatusBarHidden() const override { return true; }
};

}  // namespace

ZarnicScrollScene::ZarnicScrollScene() {
    HeadlessHost& host = ZarnicScene::shared().host();
    window_ = make<UIWindow>(UIScreen::mainScreen()->bounds());
    const auto controller = make<FullScreenController>();
    window_->setRootViewController(controller);
    page_ = make<UIScrollView>(window_->bounds());
    page_->setBackgroundColor(UIColor::whiteColor());
    page_->setContentSize({scroll::width, scroll::length});
    for (int index = 0; index < scroll::rows; ++index)
        page_->addSubview(row(index));
    controller->view()->addSubview(page_);
    window_->setHidden(false);
    NSRunLoop::mainRunLoop()->runPass();
    host.screen().paint();
}

ZarnicScrollScene::~ZarnicScrollScene() {
    window_->setHidden(true);
    NSRunLoop::mainRunLoop()->runPass();
}

void ZarnicScrollScene::show(double offset) {
    page_->setContentOffset({0, offset});
    ZarnicScene::shared().host().screen().paint();
}

Ref<CGImage> ZarnicScrollScene::picture() const {
    return ZarnicScene::shared().host().screen().compositor().snapshot();
}

}  // namespace bench
