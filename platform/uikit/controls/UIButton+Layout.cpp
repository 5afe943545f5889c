#include <algorithm>
#include <cmath>
#include <limits>

#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UIImageView.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn {
namespace {

/// What a title without other room around it is given above and below, and the least width.
constexpr double titlePadding = 6;
constexpr double leastTitleWidth = 30;

/// A rectangle of `size`, cut to what the insets leave of `area` and centred there together with
/// what stands left and right of it.
Rect placed(Size size, const Rect& area, const EdgeInsets& insets, double left, double right) {
    const Rect room = area.insetBy(insets);
    const double width = std::clamp(room.size.width - left - right, 0.0, size.width);
    const double height = std::clamp(room.size.height, 0.0, size.height);
    return {room.midX() - (left + width + right) / 2 + left, room.midY() - height / 2, width,
            height};
}

}  // namespace

void UIButton::setContentEdgeInsets(const EdgeInsets& insets) {
    contentInsets_ = insets;
    setNeedsLayout();
}

void UIButton::setTitleEdgeInsets(const EdgeInsets& insets) {
    titleInsets_ = insets;
    setNeedsLayout();
}

void UIButton::setImageEdgeInsets(const EdgeInsets& insets) {
    imageInsets_ = insets;
    setNeedsLayout();
}

Size UIButton::titleSize(Size room) const {
    return currentTitle().empty() ? Size() : titleLabel_->sizeThatFits(room);
}

void UIButton::layoutSubviews() {
    UIControl::layoutSubviews();
    backgroundView_->setFrame(bounds());
    const Rect area = bounds().insetBy(contentInsets_);
    const Ref<UIImage> image = currentImage();
    const Size picture = image ? image->size() : Size();
    const double room = std::max(0.0, area.size.width - picture.width);
    Size title = titleSize({room, area.size.height});
    title.width = std::min(title.width, room);
    imageView_->setFrame(placed(picture, area, imageInsets_, 0, title.width));
    titleLabel_->setFrame(placed(title, area, titleInsets_, picture.width, 0));
}

Size UIButton::sizeThatFits(Size) const {
    constexpr double unlimited = std::numeric_limits<double>::max();
    const Ref<UIImage> image = currentImage();
    const Size picture = image ? image->size() : Size();
    Size title = titleSize({unlimited, unlimited});
    const bool plain = contentInsets_ == EdgeInsets();
    if (title.height > 0 && plain)
        title.height += 2 * titlePadding;
    Size size{picture.width + title.width, std::max(picture.height, title.height)};
    if (!image && plain)
        size.width = std::max(size.width, leastTitleWidth);
    if (!image && title.height == 0 && currentBackgroundImage())
        size = currentBackgroundImage()->size();
    return {std::ceil(size.width) + contentInsets_.left + contentInsets_.right,
            std::ceil(size.height) + contentInsets_.top + contentInsets_.bottom};
}

}  // namespace zn
