#include "zarnic/platform/uikit/UIImageView.h"

#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSThread.h"

namespace zn {

namespace {

/// Pixels as they are seen: layers know nothing of turned images.
Ref<CGImage> uprightPixels(const UIImage& image) {
    if (image.imageOrientation() == UIImageOrientation::Up)
        return image.cgImage();
    UIGraphicsBeginImageContextWithOptions(image.size(), false, image.scale());
    image.drawAtPoint({});
    const auto upright = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return upright ? upright->cgImage() : nullptr;
}

}  // namespace

UIImageView::UIImageView() = default;

UIImageView::UIImageView(const Rect& frame) : UIView(frame) {}

UIImageView::UIImageView(const Ref<UIImage>& image)
    : UIView(Rect({}, image ? image->size() : Size())), image_(image) {}

UIImageView::~UIImageView() = default;

void UIImageView::init() {
    UIView::init();
    setUserInteractionEnabled(false);
    if (image_)
        showImage();
}

Ref<UIImage> UIImageView::image() const {
    const std::lock_guard guard(imageMutex_);
    return image_;
}

void UIImageView::setImage(const Ref<UIImage>& image) {
    replace(image_, image);
}

Ref<UIImage> UIImageView::highlightedImage() const {
    const std::lock_guard guard(imageMutex_);
    return highlightedImage_;
}

void UIImageView::setHighlightedImage(const Ref<UIImage>& image) {
    replace(highlightedImage_, image);
}

void UIImageView::replace(Ref<UIImage>& member, const Ref<UIImage>& image) {
    // The former image dies outside the lock.
    Ref<UIImage> former = image;
    {
        const std::lock_guard guard(imageMutex_);
        std::swap(member, former);
    }
    if (former == image)
        return;
    if (NSThread::isMainThread()) {
        showImage();
        return;
    }
    dispatchMain([weak = WeakRef<UIImageView>(ref(this))] {
        // Whatever is set by then: the last one wins, from whichever thread it came.
        if (const auto view = weak.lock())
            view->showImage();
    });
}

void UIImageView::setHighlighted(bool highlighted) {
    if (highlighted == highlighted_)
        return;
    highlighted_ = highlighted;
    if (highlightedImage())
        showImage();
}

Ref<UIImage> UIImageView::shownImage() const {
    const std::lock_guard guard(imageMutex_);
    return highlighted_ && highlightedImage_ ? highlightedImage_ : image_;
}

void UIImageView::showImage() {
    const auto image = shownImage();
    layer()->setContentsScale(image ? image->scale() : 1);
    layer()->setContents(image ? uprightPixels(*image) : nullptr);
}

void UIImageView::updateContentScale() {
    // The scale of the contents is the image's own.
}

Size UIImageView::sizeThatFits(Size size) const {
    const auto image = shownImage();
    return image ? image->size() : UIView::sizeThatFits(size);
}

}  // namespace zn
