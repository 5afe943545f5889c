#include "zarnic/platform/drawing/CIImage.h"

namespace zn {

CIImage::CIImage(Ref<CGImage> image) : image_(std::move(image)) {}

CIImage::~CIImage() = default;

Ref<CIImage> CIImage::imageWithCGImage(const Ref<CGImage>& image) {
    return image ? make<CIImage>(image) : nullptr;
}

Rect CIImage::extent() const {
    return {0, 0, static_cast<double>(image_->width()), static_cast<double>(image_->height())};
}

}  // namespace zn
