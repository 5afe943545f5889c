#pragma once

#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// The shape of a picture, filled with the view's background colour. Takes no touches.
class TintedImage final : public UIView {
    ZN_OBJECT(TintedImage, UIView)
public:
    explicit TintedImage(Ref<UIImage> image);
    ~TintedImage() override;
    void init() override;

    /// Null for nothing.
    void setImage(const Ref<UIImage>& image);
    void setColor(const Ref<UIColor>& color) { setBackgroundColor(color); }
    Size sizeThatFits(Size size) const override;
    void layoutSubviews() override;

private:
    Ref<UIImage> image_;
    Ref<CALayer> shape_;
};

}  // namespace zn
