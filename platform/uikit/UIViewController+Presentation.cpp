#include "zarnic/platform/NSLog.h"
#include "zarnic/platform/UIViewController.h"
#include "zarnic/platform/UIWindow.h"

namespace zn {
namespace {

/// Where a presented view waits: just below its window.
Rect belowWindow(const UIWindow& window) {
    const Rect bounds = window.bounds();
    return bounds.offsetBy(0, bounds.height());
}

void slide(bool animated, const UIView::Block& change, UIView::Completion done) {
    if (animated)
        return UIView::animateWithDuration(UIViewController::PresentationDuration, change,
                                           std::move(done));
    UIView::performWithoutAnimation(change);
    done(true);
}

}  // namespace

void UIViewController::presentViewController(const Ref<UIViewController>& controller, bool animated,
                                             Completion completion) {
    const Ref<UIWindow> window = isViewLoaded() ? view()->window() : nullptr;
    if (!controller || !window || presented_ || controller->presentingViewController()) {
        NSLog("Cannot present %s on %s: %s",
              controller ? controller->description().c_str() : "nothing", description().c_str(),
              window ? "something is presented already" : "its view is not in a window");
        return;
    }
    const Ref<UIViewController> self = ref(this);
    presented_ = controller;
    controller->presenting_ = self;
    UIView::performWithoutAnimation([&] {
        controller->view()->setFrame(animated ? belowWindow(*window) : window->bounds());
        controller->beginAppearanceTransition(true, animated);
        window->addSubview(controller->view());
        window->layoutIfNeeded();
    });
    beginAppearanceTransition(false, animated);
    slide(
        animated, [&] { controller->view()->setFrame(window->bounds()); },
        [self, controller, completion = std::move(completion)](bool) {
            if (self->presented_ != controller)
                return;
            self->endAppearanceTransition();
            controller->endAppearanceTransition();
            self->setNeedsStatusBarAppearanceUpdate();
            if (completion)
                completion();
        });
}

void UIViewController::dismissViewControllerAnimated(bool animated, Completion completion) {
    if (presented_)
        dismissPresented(animated, std::move(completion));
    else if (const auto presenter = presentingViewController())
        presenter->dismissPresented(animated, std::move(completion));
    else if (const auto parent = parentViewController())
        parent->dismissViewControllerAnimated(animated, std::move(completion));
}

void UIViewController::dismissPresented(bool animated, Completion completion) {
    const Ref<UIViewController> self = ref(this);
    const Ref<UIViewController> leaving = presented_;
    // What the leaving one presented goes with it.
    if (leaving->presented_)
        leaving->dismissPresented(false, {});
    presented_ = nullptr;
    leaving->presenting_.reset();
    const Ref<UIWindow> window = leaving->view()->window();
    leaving->beginAppearanceTransition(false, animated);
    beginAppearanceTransition(true, animated);
    slide(
        animated && window,
        [&] {
            if (window)
                leaving->view()->setFrame(belowWindow(*window));
        },
        [self, leaving, completion = std::move(completion)](bool) {
            // Presented again while it was leaving: its view stays.
            if (!leaving->presentingViewController())
                leaving->view()->removeFromSuperview();
            leaving->endAppearanceTransition();
            self->endAppearanceTransition();
            self->setNeedsStatusBarAppearanceUpdate();
            if (completion)
                completion();
        });
}

}  // namespace zn
