#include "zarnic/platform/UINavigationBar.h"

#include <algorithm>

#include "platform/uikit/NavigationBarPage.h"

namespace zn {
namespace {

constexpr CGColor barColor{0.976, 0.976, 0.976, 1};
constexpr CGColor translucentBarColor{0.976, 0.976, 0.976, 0.94};
constexpr CGColor lineColor{0, 0, 0, 0.2};
/// Points that the old and the new title travel during a push.
constexpr double slideDistance = 100;

}  // namespace

UINavigationBar::UINavigationBar() = default;

UINavigationBar::UINavigationBar(const Rect& frame) : UIView(frame) {}

UINavigationBar::~UINavigationBar() = default;

void UINavigationBar::init() {
    UIView::init();
    background_ = make<UIView>(bounds());
    background_->setUserInteractionEnabled(false);
    addSubview(background_);
    line_ = make<UIView>(Rect());
    line_->setBackgroundColor(make<UIColor>(lineColor));
    background_->addSubview(line_);
    colorBackground();
}

void UINavigationBar::colorBackground() {
    const Ref<UIColor> plain = make<UIColor>(translucent_ ? translucentBarColor : barColor);
    background_->setBackgroundColor(barTintColor_ ? barTintColor_ : plain);
}

void UINavigationBar::setTranslucent(bool translucent) {
    translucent_ = translucent;
    colorBackground();
    if (const Ref<UIView> above = superview())
        above->setNeedsLayout();
}

void UINavigationBar::setBarTintColor(const Ref<UIColor>& color) {
    barTintColor_ = color;
    colorBackground();
}

void UINavigationBar::setTitleColor(const Ref<UIColor>& color) {
    titleColor_ = color;
    showTop(Change::None, 0);
}

void UINavigationBar::setTitleFont(const Ref<UIFont>& font) {
    titleFont_ = font;
    showTop(Change::None, 0);
}

void UINavigationBar::tintColorDidChange() {
    showTop(Change::None, 0);
}

void UINavigationBar::setTopExtension(double height) {
    if (topExtension_ == height)
        return;
    topExtension_ = height;
    setNeedsLayout();
}

void UINavigationBar::setItems(std::vector<Ref<UINavigationItem>> items, Change change,
                               double duration) {
    if (!items_.empty())
        items_.back()->setChangeHandler({});
    items_ = std::move(items);
    if (!items_.empty()) {
        const WeakRef<UINavigationBar> weak = ref(this);
        items_.back()->setChangeHandler([weak] {
            if (const auto bar = weak.lock())
                bar->showTop(Change::None, 0);
        });
    }
    showTop(change, duration);
}

Ref<UINavigationBar::Page> UINavigationBar::makePage() {
    if (items_.empty())
        return nullptr;
    Page::Look look;
    look.item = items_.back();
    look.titleColor = titleColor_ ? titleColor_ : UIColor::blackColor();
    look.titleFont = titleFont_ ? titleFont_ : UIFont::systemFontOfSize(17, UIFontWeight::Semibold);
    look.tint = tintColor();
    if (items_.size() > 1 && !look.item->hidesBackButton()) {
        const Ref<UINavigationItem>& below = items_[items_.size() - 2];
        const std::string& title = below->backTitle().empty() ? below->title() : below->backTitle();
        look.backTitle = title.empty() ? "Back" : title;
    }
    const auto page = make<Page>(bounds(), std::move(look));
    page->setBackAction(ZN_ACTION(ref(this), backTapped));
    return page;
}

void UINavigationBar::showTop(Change change, double duration) {
    const Ref<Page> old = page_;
    page_ = makePage();
    if (page_)
        UIView::performWithoutAnimation([this] { addSubview(page_); });
    if (!old)
        return;
    if (change == Change::None || duration <= 0) {
        old->removeFromSuperview();
        return;
    }
    const double travel = change == Change::Push ? slideDistance : -slideDistance;
    if (page_)
        UIView::performWithoutAnimation([&] {
            page_->slideTo(travel);
            page_->setAlpha(0);
        });
    old->setUserInteractionEnabled(false);
    UIView::animateWithDuration(
        duration,
        [&] {
            old->slideTo(-travel);
            old->setAlpha(0);
            if (page_) {
                page_->slideTo(0);
                page_->setAlpha(1);
            }
        },
        [old](bool) { old->removeFromSuperview(); });
}

void UINavigationBar::backTapped() {
    // The handler may change the bar, and with it the handler.
    const auto handler = back_;
    if (handler)
        handler();
}

void UINavigationBar::layoutSubviews() {
    const Rect area = bounds();
    background_->setFrame({0, -topExtension_, area.width(), area.height() + topExtension_});
    const double hairline = 1 / contentScaleFactor();
    line_->setFrame({0, background_->bounds().height(), area.width(), hairline});
    if (page_)
        page_->setFrame(area);
}

}  // namespace zn
