#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "zarnic/platform/drawing/CGContext.h"
#include "zarnic/platform/drawing/CGImage.h"

namespace zn {

enum class UIImageOrientation {
    Up,
    Down,
    Left,
    Right,
    UpMirrored,
    DownMirrored,
    LeftMirrored,
    RightMirrored,
};

/// An immutable picture: pixels, a scale (pixels a point) and how they are turned. Safe from any
/// thread.
class ZN_EXPORT UIImage final : public NSObject {
    ZN_OBJECT(UIImage, NSObject)
public:
    UIImage(Ref<CGImage> image, double scale, UIImageOrientation orientation);
    ~UIImage() override;

    /// Reads PNG, JPEG, WebP and GIF (of what moves the first frame), told apart by their first
    /// bytes; EXIF says how the picture is turned. Of a truncated or damaged file what decodes is
    /// shown, the rest is clear. Null when nothing decodes, for more than `largestPixelCount()`
    /// pixels, and when there is no memory.
    static Ref<UIImage> imageWithData(std::span<const std::byte> bytes, double scale = 1);
    /// A file named `...@2x.png` has scale 2, and so on. Null for what is no readable file.
    static Ref<UIImage> imageWithContentsOfFile(std::string_view path);
    /// From the main bundle, with or without `.png`, preferring the main screen's `@2x` or `@3x`;
    /// kept decoded within 32 megabytes. Null for an unknown name.
    static Ref<UIImage> imageNamed(std::string_view name);
    static Ref<UIImage> imageWithCGImage(const Ref<CGImage>& image, double scale = 1,
                                         UIImageOrientation orientation = UIImageOrientation::Up);

    /// A file that claims more pixels than this, 100,000,000 unless set, is not decoded. For the
    /// whole process, from the next file on; from any thread.
    static std::uint64_t largestPixelCount();
    static void setLargestPixelCount(std::uint64_t count);

    const Ref<CGImage>& cgImage() const { return image_; }
    double scale() const { return scale_; }
    UIImageOrientation imageOrientation() const { return orientation_; }
    /// In points, as seen (turned).
    Size size() const;
    /// The length of `UIImageJPEGRepresentation` at quality 1, in bytes; 0 where that is absent.
    /// The first call encodes the image, while other threads that ask wait; later ones cost
    /// nothing.
    std::int64_t jpegByteCount() const;

    /// Into the current context, honouring scale and orientation.
    void drawAtPoint(Point point) const;
    void drawInRect(const Rect& rect) const;
    void drawInRect(const Rect& rect, CGBlendMode mode, double alpha) const;

private:
    Ref<CGImage> image_;
    double scale_;
    UIImageOrientation orientation_;
    mutable std::once_flag jpegCounted_;
    mutable std::int64_t jpegByteCount_ = 0;
};

/// PNG bytes of an image; absent for an image without pixels.
ZN_EXPORT std::optional<std::vector<std::byte>> UIImagePNGRepresentation(const Ref<UIImage>& image);
/// JPEG bytes of an image, turned as it is (by EXIF); `quality` between 0 (small) and 1 (best), and
/// from 0.9 with colours at full resolution. There is no alpha: colours stay premultiplied, so what
/// is clear becomes black. Absent for an image without pixels or with a side above 65,500 pixels.
ZN_EXPORT std::optional<std::vector<std::byte>> UIImageJPEGRepresentation(const Ref<UIImage>& image,
                                                                          double quality);

/// Image contexts: y downward, `scale` pixels a point; scale 0 means the main screen's. A size
/// without area pushes nothing. From any thread.
ZN_EXPORT void UIGraphicsBeginImageContext(Size size);
ZN_EXPORT void UIGraphicsBeginImageContextWithOptions(Size size, bool opaque, double scale);
ZN_EXPORT Ref<UIImage> UIGraphicsGetImageFromCurrentImageContext();
ZN_EXPORT void UIGraphicsEndImageContext();
/// Paints with the current fill colour, replacing what is there.
ZN_EXPORT void UIRectFill(const Rect& rect);
/// The scale that 0 stands for; set by the screen.
ZN_EXPORT void setUIGraphicsMainScreenScale(double scale);

}  // namespace zn
