#pragma once

#include <memory>

#include "zarnic/platform/drawing/CGImage.h"

namespace zn {

/// A picture on its way between filters: pixels of side 1 from the origin on. Immutable; any
/// thread.
class ZN_EXPORT CIImage final : public NSObject {
    ZN_OBJECT(CIImage, NSObject)
public:
    /// Wants pixels; see `imageWithCGImage`.
    explicit CIImage(Ref<CGImage> image);
    ~CIImage() override;
    /// Null for an absent image.
    static Ref<CIImage> imageWithCGImage(const Ref<CGImage>& image);

    /// Where there are pixels.
    Rect extent() const;
    const Ref<CGImage>& cgImage() const { return image_; }

private:
    Ref<CGImage> image_;
};

}  // namespace zn
