#include "platform/drawing/images/ImageContext.h"
#include "zarnic/UIImage+ZNCategory.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

namespace {

Ref<UIImage> rendered(const Ref<UIView>& view, Size size) {
    ImageContext context(size, UIScreen::mainScreen()->scale());
    if (context.context())
        view->layer()->renderInContext(context.context());
    return context.takeImage();
}

/// A scroll view that shows all it holds, for a scope.
class WholeContent {
public:
    explicit WholeContent(UIScrollView& scrollView)
        : scrollView_(scrollView), offset_(scrollView.contentOffset()), frame_(scrollView.frame()) {
        scrollView.setContentOffset({0, 0});
        scrollView.setFrame({{}, scrollView.contentSize()});
    }
    ~WholeContent() {
        scrollView_.setContentOffset(offset_);
        scrollView_.setFrame(frame_);
    }
    WholeContent(const WholeContent&) = delete;
    WholeContent& operator=(const WholeContent&) = delete;

private:
    UIScrollView& scrollView_;
    Point offset_;
    Rect frame_;
};

Ref<UIImage> capturedByKind(const Ref<NSObject>& view) {
    if (const auto scrollView = as<UIScrollView>(view))
        return ZN_CapturedScrollView(scrollView);
    return ZN_CapturedView(as<UIView>(view));
}

Rect scaled(const Rect& rect, double scale) {
    return {rect.origin.x * scale, rect.origin.y * scale, rect.size.width * scale,
            rect.size.height * scale};
}

}  // namespace

Ref<UIImage> ZN_Captured(const Value& view, const Rect& cropRect) {
    auto image = capturedByKind(view.object());
    if (!image || !(cropRect.size.width > 0 && cropRect.size.height > 0))
        return image;
    return UIImage::imageWithCGImage(
        image->cgImage()->imageInRect(scaled(cropRect, image->scale())));
}

Ref<UIImage> ZN_CapturedView(const Ref<UIView>& view) {
    return view ? rendered(view, view->frame().standardized().size) : nullptr;
}

Ref<UIImage> ZN_CapturedScrollView(const Ref<UIScrollView>& scrollView) {
    if (!scrollView)
        return nullptr;
    const WholeContent whole(*scrollView);
    return rendered(scrollView, scrollView->contentSize());
}

}  // namespace zn
