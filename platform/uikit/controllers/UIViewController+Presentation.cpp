#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/uikit/UIViewController.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {
namespace {

/// Where a presented view waits: just below its window.
Rect belowWindow(const UIWindow& window) {
    const Rect bounds = window.bounds();
    return bounds.offsetBy(0, bounds.height());
}

}  // namespace

/// A controller that comes or goes, and what to call afterwards.
struct UIViewController::Presentation {
    Ref<UIViewController> controller;
    Completion completion;
};

Ref<UIViewController> UIViewController::presentedViewController() const {
    const Ref<UIViewController> parent = parentViewController();
    return presented_ || !parent ? presented_ : parent->presentedViewController();
}

Ref<UIViewController> UIViewController::presentingViewController() const {
    const Ref<UIViewController> parent = parentViewController();
    const Ref<UIViewController> presenter = presenting_.lock();
    return presenter || !parent ? presenter : parent->presentingViewController();
}

void UIViewController::presentViewController(const Ref<UIViewController>& controller, bool animated,
                                             Completion completion) {
    Ref<UIViewController> presenter = ref(this);
    while (const auto parent = presenter->parentViewController())
        presenter = parent;
    presenter->presentHere(controller, animated, std::move(completion));
}

/// Null when nothing speaks against it.
const char* UIViewController::whyNotPresent(const Ref<UIViewController>& controller) const {
    if (!view_ || !view_->window())
        return "its view is not in a window";
    if (presented_)
        return "something is presented already";
    if (controller.get() == this || controller->presentingViewController() ||
        controller->parentViewController())
        return "that one is in use already";
    return nullptr;
}

void UIViewController::presentHere(const Ref<UIViewController>& controller, bool animated,
                                   Completion completion) {
    const Ref<UIViewController> self = ref(this);
    finishPresentation();
    const char* reason = controller ? whyNotPresent(controller) : "there is nothing to present";
    if (reason) {
        NSLog("Cannot present %s on %s: %s",
              controller ? controller->description().c_str() : "nothing", description().c_str(),
              reason);
        return;
    }
    const Ref<UIWindow> window = view()->window();
    presented_ = controller;
    controller->presenting_ = self;
    const auto presentation =
        std::make_shared<Presentation>(Presentation{controller, std::move(completion)});
    presentation_ = presentation;
    UIView::performWithoutAnimation([&] {
        // Laid out where it is going to be, then moved to where it comes from.
        controller->view()->setFrame(window->bounds());
        controller->beginAppearanceTransition(true, animated);
        window->addSubview(controller->view());
        window->layoutIfNeeded();
        controller->view()->setFrame(animated ? belowWindow(*window) : window->bounds());
    });
    beginAppearanceTransition(false, animated);
    move(presentation, animated, window->bounds());
}

void UIViewController::dismissViewControllerAnimated(bool animated, Completion completion) {
    const Ref<UIViewController> presenter = presenting_.lock();
    const Ref<UIViewController> parent = parentViewController();
    if (presented_)
        dismissPresented(animated, std::move(completion));
    else if (presenter)
        presenter->dismissPresented(animated, std::move(completion));
    else if (parent)
        parent->dismissViewControllerAnimated(animated, std::move(completion));
}

void UIViewController::dismissPresented(bool animated, Completion completion) {
    const Ref<UIViewController> self = ref(this);
    finishPresentation();
    const Ref<UIViewController> leaving = takePresented();
    // What was called may have dismissed it.
    if (!leaving)
        return;
    const auto presentation =
        std::make_shared<Presentation>(Presentation{leaving, std::move(completion)});
    presentation_ = presentation;
    leaving->beginAppearanceTransition(false, animated);
    beginAppearanceTransition(true, animated);
    const Ref<UIWindow> window = leaving->view()->window();
    move(presentation, animated && window, window ? belowWindow(*window) : Rect());
}

/// Lets go of what is presented and of what that presents in turn. Of these only the last, which is
/// the one that is seen, keeps its view in the window; it is returned.
Ref<UIViewController> UIViewController::takePresented() {
    const Ref<UIViewController> taken = std::exchange(presented_, nullptr);
    if (!taken)
        return nullptr;
    taken->finishPresentation();
    taken->presenting_.reset();
    const Ref<UIViewController> last = taken->takePresented();
    if (!last)
        return taken;
    taken->view()->removeFromSuperview();
    return last;
}

void UIViewController::move(const std::shared_ptr<Presentation>& presentation, bool animated,
                            const Rect& place) {
    setNeedsStatusBarAppearanceUpdate();
    // The screens may have moved on when they were told.
    if (presentation_ != presentation)
        return;
    if (!animated)
        return finishPresentation();
    const Ref<UIView> view = presentation->controller->view();
    UIView::animateWithDuration(
        PresentationDuration, [&] { view->setFrame(place); },
        [self = ref(this), presentation](bool) {
            if (self->presentation_ == presentation)
                self->finishPresentation();
        });
}

void UIViewController::finishPresentation() {
    const auto presentation = std::exchange(presentation_, nullptr);
    if (!presentation)
        return;
    const Ref<UIViewController> self = ref(this);
    const Ref<UIViewController>& controller = presentation->controller;
    const bool came = presented_ == controller;
    if (came)
        endAppearanceTransition();
    // One that somebody else presents meanwhile keeps its view.
    else if (!controller->presenting_.lock())
        controller->view()->removeFromSuperview();
    controller->endAppearanceTransition();
    if (!came)
        endAppearanceTransition();
    if (presentation->completion)
        presentation->completion();
}

}  // namespace zn
