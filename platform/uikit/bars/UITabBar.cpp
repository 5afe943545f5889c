#include "zarnic/platform/uikit/UITabBar.h"

#include <algorithm>

#include "platform/uikit/bars/TabButton.h"

namespace zn {
namespace {

constexpr CGColor barColor{0.976, 0.976, 0.976, 1};
constexpr CGColor lineColor{0, 0, 0, 0.2};
constexpr CGColor unselectedColor{0.57, 0.57, 0.57, 1};

}  // namespace

UITabBar::UITabBar() = default;

UITabBar::UITabBar(const Rect& frame) : UIView(frame) {}

UITabBar::~UITabBar() = default;

void UITabBar::init() {
    UIView::init();
    setBarTintColor(nullptr);
    line_ = make<UIView>(Rect());
    line_->setBackgroundColor(make<UIColor>(lineColor));
    addSubview(line_);
}

void UITabBar::setBarTintColor(const Ref<UIColor>& color) {
    barTintColor_ = color;
    setBackgroundColor(color ? color : make<UIColor>(barColor));
}

void UITabBar::setUnselectedItemTintColor(const Ref<UIColor>& color) {
    unselectedTint_ = color;
    showItems();
}

void UITabBar::tintColorDidChange() {
    showItems();
}

void UITabBar::setItems(std::vector<Ref<UITabBarItem>> items) {
    for (const auto& item : items_)
        item->setChangeHandler({});
    std::erase(items, nullptr);
    items_ = std::move(items);
    if (std::find(items_.begin(), items_.end(), selected_) == items_.end())
        selected_ = nullptr;
    for (const auto& button : std::exchange(buttons_, {}))
        button->removeFromSuperview();
    const WeakRef<UITabBar> weak = ref(this);
    for (const auto& item : items_) {
        item->setChangeHandler([weak] {
            if (const auto bar = weak.lock())
                bar->showItems();
        });
        const auto button = make<TabButton>();
        button->addTarget(ZN_ACTION(ref(this), touched), UIControlEvents::TouchDown);
        addSubview(button);
        buttons_.push_back(button);
    }
    showItems();
    setNeedsLayout();
}

void UITabBar::setSelectedItem(const Ref<UITabBarItem>& item) {
    selected_ = item;
    showItems();
}

void UITabBar::showItems() {
    const Ref<UIColor> plain = unselectedTint_ ? unselectedTint_ : make<UIColor>(unselectedColor);
    for (std::size_t index = 0; index < items_.size(); ++index) {
        const bool selected = items_[index] == selected_;
        buttons_[index]->show(*items_[index], selected, selected ? tintColor() : plain);
    }
}

void UITabBar::touched(const Ref<TabButton>& button) {
    const auto found = std::find(buttons_.begin(), buttons_.end(), button);
    // The handler may change the bar, and with it the handler.
    const auto handler = select_;
    if (handler && found != buttons_.end())
        handler(static_cast<std::size_t>(found - buttons_.begin()));
}

void UITabBar::layoutSubviews() {
    const Rect area = bounds();
    line_->setFrame({0, 0, area.width(), 1 / contentScaleFactor()});
    const double width = buttons_.empty() ? 0 : area.width() / static_cast<double>(buttons_.size());
    for (std::size_t index = 0; index < buttons_.size(); ++index)
        buttons_[index]->setFrame({static_cast<double>(index) * width, 0, width, Height});
}

}  // namespace zn
