#include "zarnic/platform/uikit/UIView.h"

namespace zn {

Rect UIView::frame() const {
    return layer_->frame();
}

void UIView::setFrame(const Rect& frame) {
    const Size oldSize = layer_->bounds().size;
    layer_->setFrame(frame.standardized());
    sizeChanged(oldSize);
}

Rect UIView::bounds() const {
    return layer_->bounds();
}

void UIView::setBounds(const Rect& bounds) {
    const Size oldSize = layer_->bounds().size;
    layer_->setBounds(bounds.standardized());
    sizeChanged(oldSize);
}

Point UIView::center() const {
    return layer_->position();
}

void UIView::setCenter(Point center) {
    layer_->setPosition(center);
}

AffineTransform UIView::transform() const {
    return layer_->affineTransform();
}

void UIView::setTransform(const AffineTransform& transform) {
    layer_->setAffineTransform(transform);
}

Size UIView::sizeThatFits(Size) const {
    return bounds().size;
}

void UIView::sizeToFit() {
    // With a transform the frame says nothing about the size: the bounds change around the centre.
    const Size size = sizeThatFits(bounds().size);
    if (transform().isIdentity())
        setFrame({frame().origin, size});
    else
        setBounds({bounds().origin, size});
}

AffineTransform UIView::transformToSuperview() const {
    const Rect& bounds = layer_->bounds();
    const Point anchor = layer_->anchorPoint(), position = layer_->position();
    const Point anchorPlace{anchor.x * bounds.size.width, anchor.y * bounds.size.height};
    const AffineTransform& own = layer_->affineTransform();
    if (own.isIdentity())
        return AffineTransform::translation(position.x - anchorPlace.x - bounds.origin.x,
                                            position.y - anchorPlace.y - bounds.origin.y);
    return AffineTransform::translation(-anchorPlace.x - bounds.origin.x,
                                        -anchorPlace.y - bounds.origin.y)
        .concat(own)
        .concat(AffineTransform::translation(position.x, position.y));
}

AffineTransform UIView::transformToAncestor(const UIView* ancestor) const {
    AffineTransform whole;
    for (const UIView* each = this; each && each != ancestor; each = each->superview().get())
        whole = whole.concat(each->transformToSuperview());
    return whole;
}

const UIView* UIView::topmost() const {
    const UIView* top = this;
    while (const UIView* parent = top->superview().get())
        top = parent;
    return top;
}

const UIView* UIView::commonAncestor(const UIView& other) const {
    for (const UIView* mine = this; mine; mine = mine->superview().get())
        for (const UIView* its = &other; its; its = its->superview().get())
            if (mine == its)
                return mine;
    return nullptr;
}

AffineTransform UIView::transformToView(const UIView* view) const {
    const UIView* target = view ? view : topmost();
    // Without a common ancestor both go through the screen, where windows have their frames.
    const UIView* common = commonAncestor(*target);
    const AffineTransform up = transformToAncestor(common);
    if (target == common)
        return up;
    // A view that is scaled to nothing has no way back; its own transform is then left out.
    const auto down = target->transformToAncestor(common).inverted();
    return down ? up.concat(*down) : up;
}

Point UIView::convertPointToView(Point point, const Ref<UIView>& view) const {
    return transformToView(view.get()).apply(point);
}

Point UIView::convertPointFromView(Point point, const Ref<UIView>& view) const {
    return (view ? view.get() : topmost())->transformToView(this).apply(point);
}

Rect UIView::convertRectToView(const Rect& rect, const Ref<UIView>& view) const {
    return transformToView(view.get()).apply(rect);
}

Rect UIView::convertRectFromView(const Rect& rect, const Ref<UIView>& view) const {
    return (view ? view.get() : topmost())->transformToView(this).apply(rect);
}

}  // namespace zn
