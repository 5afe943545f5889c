#pragma once

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// An image context for a scope; its picture can be taken without a copy.
class ImageContext {
public:
    /// `scale` in pixels a point; 0 means the main screen's.
    explicit ImageContext(Size size, double scale = 1);
    ~ImageContext();
    ImageContext(const ImageContext&) = delete;
    ImageContext& operator=(const ImageContext&) = delete;

    /// Null for a size that no picture has; drawing then goes nowhere.
    const Ref<CGContext>& context() const { return context_; }
    /// What was drawn, or null; afterwards nothing can be drawn any more.
    Ref<UIImage> takeImage();

private:
    Ref<CGContext> context_;
    double scale_;
};

}  // namespace zn
