#pragma once

#include <mutex>

#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// Shows an image, placed by the content mode: stretched unless set. Takes no touches. Images may
/// be set and asked for from any thread; the rest belongs to the main thread.
class ZN_EXPORT UIImageView : public UIView {
    ZN_OBJECT(UIImageView, UIView)
public:
    UIImageView();
    explicit UIImageView(const Rect& frame);
    /// As large as the image.
    explicit UIImageView(const Ref<UIImage>& image);
    ~UIImageView() override;
    void init() override;

    Ref<UIImage> image() const;
    /// Never changes the frame. Set from another thread it shows in the main loop's next pass.
    virtual void setImage(const Ref<UIImage>& image);
    /// Shown while `highlighted`; null for the image.
    Ref<UIImage> highlightedImage() const;
    virtual void setHighlightedImage(const Ref<UIImage>& image);
    bool highlighted() const { return highlighted_; }
    void setHighlighted(bool highlighted);

    /// The shown image's size, or the present size without one.
    Size sizeThatFits(Size size) const override;

protected:
    void updateContentScale() override;

private:
    void replace(Ref<UIImage>& member, const Ref<UIImage>& image);
    Ref<UIImage> shownImage() const;
    void showImage();

    mutable std::mutex imageMutex_;
    Ref<UIImage> image_;
    Ref<UIImage> highlightedImage_;
    bool highlighted_ = false;
};

}  // namespace zn
