#include "platform/uikit/controls/TintedImage.h"

namespace zn {

TintedImage::TintedImage(Ref<UIImage> image)
    : UIView(Rect({}, image ? image->size() : Size())), image_(std::move(image)) {}

TintedImage::~TintedImage() = default;

void TintedImage::init() {
    UIView::init();
    setUserInteractionEnabled(false);
    shape_ = make<CALayer>();
    shape_->setContentsGravity(CAContentsGravity::ResizeAspect);
    layer()->setMask(shape_);
    setImage(image_);
}

void TintedImage::setImage(const Ref<UIImage>& image) {
    image_ = image;
    shape_->setContents(image ? image->cgImage() : nullptr);
    setHidden(!image);
    setNeedsLayout();
}

Size TintedImage::sizeThatFits(Size) const {
    return image_ ? image_->size() : Size();
}

void TintedImage::layoutSubviews() {
    CATransaction::begin();
    CATransaction::setDisableActions(true);
    shape_->setFrame(bounds());
    CATransaction::commit();
}

}  // namespace zn
