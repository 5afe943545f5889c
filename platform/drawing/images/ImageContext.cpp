#include "platform/drawing/images/ImageContext.h"

#include "platform/drawing/context/CurrentContext.h"
#include "platform/drawing/context/TakeImage.h"

namespace zn {

ImageContext::ImageContext(Size size, double scale)
    : scale_(scale == 0 ? mainScreenScale() : scale) {
    UIGraphicsBeginImageContextWithOptions(size, false, scale_);
    context_ = UIGraphicsGetCurrentContext();
}

ImageContext::~ImageContext() {
    UIGraphicsEndImageContext();
}

Ref<UIImage> ImageContext::takeImage() {
    return context_ ? UIImage::imageWithCGImage(zn::takeImage(*context_), scale_) : nullptr;
}

}  // namespace zn
