#include <atomic>
#include <vector>

#include "platform/drawing/context/CurrentContext.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {

namespace {

struct Entry {
    /// Null when an image context could not be made: drawing then goes nowhere, instead of into
    /// the picture around it, and the matching end takes this entry only.
    Ref<CGContext> context;
    bool isImageContext;
    double scale;
};

std::vector<Entry>& contexts() {
    thread_local std::vector<Entry> stack;
    return stack;
}

std::atomic<double> screenScale = 1;

}  // namespace

Ref<CGContext> UIGraphicsGetCurrentContext() {
    return contexts().empty() ? nullptr : contexts().back().context;
}

void UIGraphicsPushContext(const Ref<CGContext>& context) {
    contexts().push_back({context, false, 1});
}

void UIGraphicsPopContext() {
    if (!contexts().empty())
        contexts().pop_back();
}

Ref<CGContext> currentContextOrLog(const char* call) {
    auto context = UIGraphicsGetCurrentContext();
    if (!context)
        NSLog("%s: there is no current graphics context", call);
    return context;
}

void UIGraphicsBeginImageContext(Size size) {
    UIGraphicsBeginImageContextWithOptions(size, false, 1);
}

void UIGraphicsBeginImageContextWithOptions(Size size, bool opaque, double scale) {
    const double pixelsPerPoint = scale == 0 ? mainScreenScale() : scale;
    auto context = CGContext::image(size, opaque, pixelsPerPoint);
    if (!context)
        NSLog("UIGraphicsBeginImageContext: no picture of %g by %g points can be made", size.width,
              size.height);
    contexts().push_back({std::move(context), true, pixelsPerPoint});
}

Ref<UIImage> UIGraphicsGetImageFromCurrentImageContext() {
    if (contexts().empty() || !contexts().back().isImageContext || !contexts().back().context)
        return nullptr;
    const Entry& entry = contexts().back();
    return UIImage::imageWithCGImage(entry.context->makeImage(), entry.scale);
}

void UIGraphicsEndImageContext() {
    if (!contexts().empty() && contexts().back().isImageContext)
        contexts().pop_back();
}

void UIRectFill(const Rect& rect) {
    const auto context = currentContextOrLog("UIRectFill");
    if (!context)
        return;
    context->saveGState();
    context->setBlendMode(CGBlendMode::Copy);
    context->fillRect(rect);
    context->restoreGState();
}

void setUIGraphicsMainScreenScale(double scale) {
    screenScale = scale;
}

double mainScreenScale() {
    return screenScale;
}

}  // namespace zn
