#include "platform/uikit/view/FirstResponder.h"

#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

FirstResponder& FirstResponder::shared() {
    static auto& theFirstResponder = *new FirstResponder;
    return theFirstResponder;
}

bool FirstResponder::make(const Ref<UIResponder>& responder) {
    const auto previous = current();
    if (previous && !previous->resignFirstResponder())
        return false;
    current_ = responder;
    // Keys go to the key window, so its window becomes that.
    const auto view = as<UIView>(responder);
    if (const auto window = view ? view->window() : nullptr)
        window->makeKeyWindow();
    return true;
}

void FirstResponder::clear(const UIResponder& responder) {
    if (is(responder))
        current_.reset();
}

}  // namespace zn
