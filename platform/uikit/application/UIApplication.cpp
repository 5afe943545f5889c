#include "zarnic/platform/uikit/UIApplication.h"

#include "platform/uikit/application/ApplicationState.h"
#include "platform/uikit/screen/ScreenState.h"
#include "platform/uikit/touch/TouchDispatcher.h"
#include "platform/uikit/view/FirstResponder.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/services/Services.h"
#include "zarnic/platform/services/URLOpener.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {
namespace {

/// Before the layers are committed: what changes to and fro within a pass is never seen.
constexpr int endOfPassOrder = -1000;

void post(const char* name, const Ref<UIWindow>& window) {
    NSNotificationCenter::defaultCenter()->postNotificationName(name, window);
}

/// The controller that the window shows: its root, or what was presented last above it.
Ref<UIViewController> frontController(const UIWindow& window) {
    Ref<UIViewController> front = window.rootViewController();
    while (front && front->presentedViewController())
        front = front->presentedViewController();
    return front;
}

}  // namespace

UIApplication::UIApplication() : state_(std::make_unique<State>()) {
    state_->endOfPass = NSRunLoop::mainRunLoop()->addBeforeWaiting(endOfPassOrder, [this] {
        state_->updateStatusBar();
        state_->updateKeyboardPanel();
    });
}

UIApplication::~UIApplication() = default;

Ref<UIApplication> UIApplication::sharedApplication() {
    static const auto& application = *new Ref<UIApplication>(make<UIApplication>());
    return application;
}

std::vector<Ref<UIWindow>> UIApplication::windows() const {
    return UIScreen::mainScreen()->state_->windows.all();
}

Ref<UIWindow> UIApplication::keyWindow() const {
    return state_->key();
}

Ref<UIResponder> UIApplication::firstResponder() const {
    return FirstResponder::shared().current();
}

Ref<UIWindow> UIApplication::State::key() const {
    return keys.empty() ? nullptr : keys.back().lock();
}

void UIApplication::State::makeKey(const Ref<UIWindow>& window) {
    const Ref<UIWindow> old = key();
    if (window == old)
        return;
    std::erase_if(keys, [&](const WeakRef<UIWindow>& weak) {
        const Ref<UIWindow> each = weak.lock();
        return !each || each == window;
    });
    keys.push_back(window);
    if (old) {
        old->resignKeyWindow();
        post(UIWindowDidResignKeyNotification, old);
    }
    // What was called may have chosen another one.
    if (window && key() == window) {
        window->becomeKeyWindow();
        post(UIWindowDidBecomeKeyNotification, window);
    }
}

void UIApplication::State::windowWasHidden(const Ref<UIWindow>& window) {
    if (key() != window)
        return;
    const auto visible = UIScreen::mainScreen()->state_->windows.visible();
    Ref<UIWindow> next;
    for (const Ref<UIWindow>& each : visible)
        if (each != keyboardPanel)
            next = each;
    for (const WeakRef<UIWindow>& weak : keys)
        if (const Ref<UIWindow> former = weak.lock(); former && !former->hidden())
            next = former;
    makeKey(next);
}

Rect UIApplication::statusBarFrame() const {
    if (statusBarHidden())
        return {};
    const auto screen = UIScreen::mainScreen();
    return {0, 0, screen->bounds().width(), screen->profile().statusBarHeight};
}

bool UIApplication::statusBarHidden() const {
    return UIScreen::mainScreen()->state_->statusBar->hidden();
}

UIStatusBarStyle UIApplication::statusBarStyle() const {
    return UIScreen::mainScreen()->state_->statusBar->style();
}

void UIApplication::setNeedsStatusBarAppearanceUpdate() {
    state_->statusBarNeedsUpdate = true;
}

void UIApplication::State::updateStatusBar() {
    if (!statusBarNeedsUpdate)
        return;
    statusBarNeedsUpdate = false;
    UIScreen::State& screen = *UIScreen::mainScreen()->state_;
    StatusBar::Look look;
    for (const Ref<UIWindow>& window : screen.windows.visible())
        if (const Ref<UIViewController> front = frontController(*window))
            look = {front->prefersStatusBarHidden(),
                    static_cast<UIStatusBarStyle>(front->preferredStatusBarStyle()),
                    static_cast<UIStatusBarAnimation>(front->preferredStatusBarUpdateAnimation())};
    // The application begins with what its first screen wants.
    if (!statusBarWasUpdated)
        look.animation = UIStatusBarAnimation::None;
    statusBarWasUpdated = true;
    screen.statusBar->show(look);
}

void UIApplication::openURL(std::string_view url) {
    openURL(url, {}, {});
}

void UIApplication::openURL(std::string_view url, const Dictionary&,
                            std::function<void(bool success)> completion) {
    Services::get<URLOpener>()->open(url, std::move(completion));
}

void UIApplication::touchDown(std::int64_t finger, Point place) {
    TouchDispatcher::shared().touchDown(finger, place);
}

void UIApplication::touchMove(std::int64_t finger, Point place) {
    TouchDispatcher::shared().touchMove(finger, place);
}

void UIApplication::touchUp(std::int64_t finger, Point place) {
    TouchDispatcher::shared().touchUp(finger, place);
}

void UIApplication::touchCancel(std::int64_t finger) {
    TouchDispatcher::shared().touchCancel(finger);
}

}  // namespace zn
