#include "zarnic/platform/uikit/UINavigationBar.h"

#include <algorithm>

#include "platform/uikit/bars/BarButton.h"
#include "platform/uikit/bars/NavigationBarPage.h"

namespace zn {
namespace {

constexpr CGColor barColor{0.976, 0.976, 0.976, 1};
constexpr CGColor translucentBarColor{0.976, 0.976, 0.976, 0.94};
constexpr CGColor lineColor{0, 0, 0, 0.2};
/// Points that the old and the new title travel during a change.
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

void UINavigationBar::setTitleTextAttributes(const Dictionary& attributes) {
    titleTextAttributes_ = attributes.copy();
    refreshPage();
}

void UINavigationBar::tintColorDidChange() {
    refreshPage();
}

void UINavigationBar::setTopExtension(double height) {
    if (topExtension_ == height)
        return;
    topExtension_ = height;
    setNeedsLayout();
}

void UINavigationBar::setItems(std::vector<Ref<UINavigationItem>> items, Change change) {
    endChange();
    if (!items_.empty())
        items_.back()->setChangeHandler({});
    items_ = std::move(items);
    watchTop();
    const Ref<Page> old = std::exchange(page_, nullptr);
    refreshPage();
    if (!old)
        return;
    if (change == Change::None) {
        old->removeFromSuperview();
        return;
    }
    leavingPage_ = old;
    leavingPage_->setUserInteractionEnabled(false);
    travel_ = change == Change::Push ? slideDistance : -slideDistance;
    UIView::performWithoutAnimation([this] { setChangeProgress(0); });
}

void UINavigationBar::watchTop() {
    if (items_.empty())
        return;
    const WeakRef<UINavigationBar> weak = ref(this);
    items_.back()->setChangeHandler([weak] {
        if (const auto bar = weak.lock())
            bar->refreshPage();
    });
}

void UINavigationBar::setChangeProgress(double progress) {
    progress_ = progress;
    if (leavingPage_) {
        leavingPage_->slideTo(-travel_ * progress);
        leavingPage_->setAlpha(1 - progress);
    }
    if (page_) {
        page_->slideTo(travel_ * (1 - progress));
        page_->setAlpha(progress);
    }
}

void UINavigationBar::endChange() {
    if (const auto leaving = std::exchange(leavingPage_, nullptr))
        leaving->removeFromSuperview();
    UIView::performWithoutAnimation([this] { setChangeProgress(1); });
}

Ref<UINavigationBar::Page> UINavigationBar::makePage() {
    if (items_.empty())
        return nullptr;
    Page::Look look;
    look.item = items_.back();
    const Ref<UIColor> color = colorOf(titleTextAttributes_);
    const Ref<UIFont> font = fontOf(titleTextAttributes_);
    look.titleColor = color ? color : UIColor::blackColor();
    look.titleFont = font ? font : UIFont::systemFontOfSize(17, UIFontWeight::Semibold);
    look.tint = tintColor();
    const bool ownLeft =
        !look.item->leftBarButtonItems().empty() && !look.item->leftItemsSupplementBackButton();
    if (items_.size() > 1 && !look.item->hidesBackButton() && !ownLeft) {
        const Ref<UINavigationItem>& below = items_[items_.size() - 2];
        const std::string& title = below->backTitle().empty() ? below->title() : below->backTitle();
        look.backTitle = title.empty() ? "Back" : title;
    }
    auto page = make<Page>(bounds(), std::move(look));
    page->setBackAction(ZN_ACTION(ref(this), backTapped));
    return page;
}

void UINavigationBar::refreshPage() {
    UIView::performWithoutAnimation([this] {
        // The new page takes over what both show: the title view, the items' views.
        const Ref<Page> old = std::exchange(page_, makePage());
        if (page_)
            addSubview(page_);
        if (old)
            old->removeFromSuperview();
        setChangeProgress(progress_);
    });
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
