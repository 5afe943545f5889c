#include "zarnic/platform/uikit/UIBarButtonItem.h"

#include "zarnic/platform/uikit/UIControl.h"

namespace zn {

UIBarButtonItem::UIBarButtonItem() = default;

UIBarButtonItem::UIBarButtonItem(std::string title, UIBarButtonItemStyle style, Action action)
    : title_(std::move(title)), style_(style), action_(std::move(action)) {}

UIBarButtonItem::UIBarButtonItem(Ref<UIImage> image, UIBarButtonItemStyle style, Action action)
    : image_(std::move(image)), style_(style), action_(std::move(action)) {}

UIBarButtonItem::UIBarButtonItem(Ref<UIView> customView) : customView_(std::move(customView)) {}

UIBarButtonItem::~UIBarButtonItem() = default;

void UIBarButtonItem::setTitle(std::string_view title) {
    title_ = title;
    tellBar();
}

void UIBarButtonItem::setImage(const Ref<UIImage>& image) {
    image_ = image;
    tellBar();
}

void UIBarButtonItem::setCustomView(const Ref<UIView>& view) {
    customView_ = view;
    tellBar();
}

void UIBarButtonItem::setStyle(UIBarButtonItemStyle style) {
    style_ = style;
    tellBar();
}

void UIBarButtonItem::setEnabled(bool enabled) {
    enabled_ = enabled;
    tellBar();
}

void UIBarButtonItem::setTintColor(const Ref<UIColor>& color) {
    tintColor_ = color;
    tellBar();
}

void UIBarButtonItem::setWidth(double width) {
    width_ = width;
    tellBar();
}

Dictionary UIBarButtonItem::titleTextAttributes(unsigned state) const {
    auto found = attributes_.find(state);
    if (found == attributes_.end())
        found = attributes_.find(UIControlState::Normal);
    return found == attributes_.end() ? Dictionary().copy() : found->second;
}

void UIBarButtonItem::setTitleTextAttributes(const Dictionary& attributes, unsigned state) {
    attributes_.insert_or_assign(state, attributes.copy());
    tellBar();
}

void UIBarButtonItem::tellBar() const {
    if (changed_)
        changed_();
}

}  // namespace zn
