#include "platform/uikit/bars/TabButton.h"

#include <algorithm>

#include "zarnic/platform/uikit/UITabBar.h"

namespace zn {
namespace {

constexpr double titleSize = 10;
/// A title without a picture is larger, and in the middle.
constexpr double loneTitleSize = 14;
constexpr double titleBottom = 3;
constexpr double pictureMiddle = 18;
constexpr double badgeHeight = 18;
constexpr double badgePadding = 5;
/// How far a badge reaches over its picture.
constexpr double badgeOverlap = 9;
constexpr double disabledAlpha = 0.4;
constexpr CGColor badgeRed{1, 0.231, 0.188, 1};

}  // namespace

TabButton::TabButton() = default;

TabButton::~TabButton() = default;

void TabButton::init() {
    UIControl::init();
    picture_ = make<TintedImage>(nullptr);
    title_ = make<UILabel>();
    title_->setTextAlignment(NSTextAlignment::Center);
    badge_ = make<UILabel>();
    badge_->setTextAlignment(NSTextAlignment::Center);
    badge_->setTextColor(UIColor::whiteColor());
    badge_->setFont(UIFont::systemFontOfSize(13));
    badge_->layer()->setCornerRadius(badgeHeight / 2);
    badge_->setClipsToBounds(true);
    addSubview(picture_);
    addSubview(title_);
    addSubview(badge_);
}

void TabButton::show(const UITabBarItem& item, bool selected, const Ref<UIColor>& color) {
    picture_->setImage(selected && item.selectedImage() ? item.selectedImage() : item.image());
    picture_->setColor(color);
    title_->setText(item.title());
    title_->setTextColor(color);
    title_->setFont(
        UIFont::systemFontOfSize(item.image() ? titleSize : loneTitleSize, UIFontWeight::Medium));
    badge_->setText(item.badgeValue());
    badge_->setHidden(item.badgeValue().empty());
    badge_->setBackgroundColor(item.badgeColor() ? item.badgeColor() : make<UIColor>(badgeRed));
    setEnabled(item.enabled());
    setAlpha(item.enabled() ? 1 : disabledAlpha);
    setNeedsLayout();
}

void TabButton::layoutSubviews() {
    const Rect area = bounds();
    const Size title = title_->sizeThatFits({});
    const double width = std::min(title.width, area.width());
    const double y = picture_->hidden() ? (area.height() - title.height) / 2
                                        : area.height() - titleBottom - title.height;
    title_->setFrame({(area.width() - width) / 2, y, width, title.height});
    const Size size = picture_->sizeThatFits({});
    const Rect picture({(area.width() - size.width) / 2, pictureMiddle - size.height / 2}, size);
    picture_->setFrame(picture);
    layoutBadge(picture_->hidden() ? title_->frame() : picture);
}

void TabButton::layoutBadge(const Rect& picture) {
    const double wanted = badge_->sizeThatFits({}).width + 2 * badgePadding;
    const double width = std::clamp(wanted, badgeHeight, std::max(badgeHeight, bounds().width()));
    const double x = std::min(picture.maxX() - badgeOverlap, bounds().width() - width);
    badge_->setFrame({x, 2, width, badgeHeight});
}

}  // namespace zn
