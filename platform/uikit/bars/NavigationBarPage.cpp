#include "platform/uikit/bars/NavigationBarPage.h"

#include <algorithm>

#include "platform/uikit/bars/BarButton.h"

namespace zn {
namespace {

constexpr double chevronLeft = 9;
constexpr Size chevronSize{11, 20};
constexpr double chevronWidth = 2.75;
constexpr double backTitleLeft = 27;
constexpr double spacing = 8;
/// Between an item and the edge of the bar.
constexpr double itemMargin = 16;
/// The part of the bar that the way back may take.
constexpr double backShare = 0.4;

CGPath chevronPath() {
    CGPath path;
    path.moveTo({chevronSize.width - 1, 1});
    path.lineTo({1.5, chevronSize.height / 2});
    path.lineTo({chevronSize.width - 1, chevronSize.height - 1});
    return path;
}

}  // namespace

UINavigationBar::Page::Page(const Rect& frame, Look look) : UIView(frame), look_(std::move(look)) {}

void UINavigationBar::Page::init() {
    UIView::init();
    makeTitle();
    if (!look_.backTitle.empty())
        makeBackButton();
    left_ = makeItems(look_.item->leftBarButtonItems());
    right_ = makeItems(look_.item->rightBarButtonItems());
    layoutSubviews();
}

void UINavigationBar::Page::makeTitle() {
    title_ = look_.item->titleView();
    if (!title_) {
        const auto label = make<UILabel>();
        label->setFont(look_.titleFont);
        label->setTextColor(look_.titleColor);
        label->setTextAlignment(NSTextAlignment::Center);
        label->setText(look_.item->title());
        title_ = label;
    }
    addSubview(title_);
}

void UINavigationBar::Page::makeBackButton() {
    back_ = UIButton::buttonWithType(UIButtonType::System);
    back_->titleLabel()->setFont(UIFont::systemFontOfSize(17));
    back_->setTitle(look_.backTitle, UIControlState::Normal);
    back_->setTitleColor(look_.tint, UIControlState::Normal);
    addSubview(back_);
    chevron_ = make<CAShapeLayer>();
    chevron_->setPath(chevronPath());
    chevron_->setFillColor({});
    chevron_->setStrokeColor(look_.tint->cgColor());
    chevron_->setLineWidth(chevronWidth);
    chevron_->setLineCap(CGLineCap::Round);
    chevron_->setLineJoin(CGLineJoin::Round);
    layer()->addSublayer(chevron_);
}

std::vector<Ref<UIView>> UINavigationBar::Page::makeItems(const UINavigationItem::Items& items) {
    std::vector<Ref<UIView>> views;
    for (const auto& item : items) {
        views.push_back(item->customView() ? item->customView()
                                           : Ref<UIView>(make<BarButton>(item, look_.tint)));
        addSubview(views.back());
    }
    return views;
}

void UINavigationBar::Page::setBackAction(const Action& action) {
    if (back_)
        back_->addTarget(action, UIControlEvents::TouchUpInside);
}

void UINavigationBar::Page::slideTo(double offset) {
    offset_ = offset;
    layoutSubviews();
}

double UINavigationBar::Page::layoutBackButton() {
    const Rect area = bounds();
    const Size wanted = back_->sizeThatFits(area.size);
    const double width = std::min(backTitleLeft + wanted.width, area.width() * backShare);
    back_->setTitleEdgeInsets({0, backTitleLeft, 0, 0});
    back_->setFrame({offset_ / 2, 0, width, area.height()});
    CATransaction::begin();
    CATransaction::setDisableActions(true);
    chevron_->setFrame(Rect({chevronLeft, (area.height() - chevronSize.height) / 2}, chevronSize));
    CATransaction::commit();
    return width;
}

/// A custom view keeps its size; one without a size gets what it asks for.
Size UINavigationBar::Page::itemSize(const UIView& view) const {
    const Size own = view.bounds().size;
    const bool sized = own.width > 0 && own.height > 0 && !dynamic_cast<const BarButton*>(&view);
    return sized ? own : view.sizeThatFits(bounds().size);
}

double UINavigationBar::Page::layoutLeft() {
    double x = back_ ? layoutBackButton() + spacing : left_.empty() ? spacing : itemMargin;
    for (const auto& view : left_) {
        const Size size = itemSize(*view);
        view->setFrame(Rect({x, (bounds().height() - size.height) / 2}, size));
        x += size.width + spacing;
    }
    return x;
}

double UINavigationBar::Page::layoutRight() {
    double taken = right_.empty() ? spacing : itemMargin;
    for (const auto& view : right_) {
        const Size size = itemSize(*view);
        taken += size.width;
        view->setFrame(
            Rect({bounds().width() - taken, (bounds().height() - size.height) / 2}, size));
        taken += spacing;
    }
    return taken;
}

void UINavigationBar::Page::layoutSubviews() {
    const Rect area = bounds();
    const double left = layoutLeft();
    const double right = layoutRight();
    const Size wanted = title_->sizeThatFits(area.size);
    const double width = std::min(wanted.width, std::max(0.0, area.width() - left - right));
    // Centred in the bar, moved aside only where the sides need the room.
    const double x = std::max(left, (area.width() - width) / 2);
    const double fitting = std::min(x, area.width() - right - width);
    title_->setFrame(
        {fitting + offset_, (area.height() - wanted.height) / 2, width, wanted.height});
}

}  // namespace zn
