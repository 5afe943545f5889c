#include "platform/uikit/bars/BarButton.h"

#include <algorithm>

#include "zarnic/platform/drawing/NSTextAttributes.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn {
namespace {

constexpr double fontSize = 17;
/// So wide that a finger finds it.
constexpr double leastWidth = 30;
constexpr double disabledGray = 0.6;

}  // namespace

Ref<UIFont> fontOf(const Dictionary& attributes) {
    return attributes[NSFontAttributeName].object<UIFont>();
}

Ref<UIColor> colorOf(const Dictionary& attributes) {
    return attributes[NSForegroundColorAttributeName].object<UIColor>();
}

BarButton::BarButton(Ref<UIBarButtonItem> item, Ref<UIColor> barTint)
    : UIButton(UIButtonType::System), item_(std::move(item)), tint_(std::move(barTint)) {}

BarButton::~BarButton() = default;

void BarButton::init() {
    UIButton::init();
    const Ref<UIColor> gray = UIColor::colorWithWhite(disabledGray, 1);
    if (item_->tintColor())
        tint_ = item_->tintColor();
    setEnabled(item_->enabled());
    if (item_->image()) {
        picture_ = make<TintedImage>(item_->image());
        picture_->setColor(enabled() ? tint_ : gray);
        addSubview(picture_);
    } else {
        setTitle(item_->title(), UIControlState::Normal);
        setTitleColor(tint_, UIControlState::Normal);
        setTitleColor(gray, UIControlState::Disabled);
        applyAttributes();
    }
    addTarget(ZN_ACTION(ref(this), tapped), UIControlEvents::TouchUpInside);
}

void BarButton::applyAttributes() {
    const bool done = item_->style() == UIBarButtonItemStyle::Done;
    const Ref<UIFont> font = fontOf(item_->titleTextAttributes(state()));
    titleLabel()->setFont(font ? font
                               : UIFont::systemFontOfSize(fontSize, done ? UIFontWeight::Semibold
                                                                         : UIFontWeight::Regular));
    for (const unsigned state :
         {UIControlState::Normal, UIControlState::Highlighted, UIControlState::Disabled})
        if (const Ref<UIColor> color = colorOf(item_->titleTextAttributes(state)))
            setTitleColor(color, state);
}

void BarButton::tapped() {
    item_->action().send(item_);
}

Size BarButton::sizeThatFits(Size size) const {
    const Size wanted = picture_ ? picture_->sizeThatFits(size) : UIButton::sizeThatFits(size);
    return {item_->width() > 0 ? item_->width() : std::max(leastWidth, wanted.width),
            wanted.height};
}

void BarButton::layoutSubviews() {
    UIButton::layoutSubviews();
    if (!picture_)
        return;
    const Size size = picture_->sizeThatFits(bounds().size);
    picture_->setFrame(
        Rect({bounds().midX() - size.width / 2, bounds().midY() - size.height / 2}, size));
}

}  // namespace zn
