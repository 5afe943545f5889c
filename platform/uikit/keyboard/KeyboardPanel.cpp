#include "platform/uikit/keyboard/KeyboardPanel.h"

#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

constexpr double duration = 0.25;

Rect belowScreen() {
    const Rect screen = UIScreen::mainScreen()->bounds();
    return {0, screen.height(), screen.width(), 0};
}

}  // namespace

KeyboardPanel::KeyboardPanel() : UIWindow(belowScreen()) {}

void KeyboardPanel::init() {
    UIWindow::init();
    setWindowLevel(UIWindowLevel::StatusBar - 1);
    setBackgroundColor(UIColor::colorWithRed(0.82, 0.835, 0.86, 1));
}

KeyboardPanel::Content KeyboardPanel::contentFor(const Ref<UIKeyInput>& input) {
    if (!input)
        return {};
    Content content{input->inputAccessoryView(), input->inputView()};
    if (content.keys || !hasKeyboard_)
        return content;
    if (!keyboard_)
        keyboard_ = make<KeyboardView>(bounds().width());
    keyboard_->adapt(*input);
    content.keys = keyboard_;
    return content;
}

void KeyboardPanel::update() {
    const Content content = contentFor(UIApplication::sharedApplication()->keyInput());
    if (content == content_)
        return;
    content_ = content;
    if (content == Content{})
        sink();
    else
        rise(fill(content));
}

double KeyboardPanel::fill(const Content& content) {
    for (const Ref<UIView>& old : std::vector(subviews()))
        old->removeFromSuperview();
    double height = 0;
    for (const Ref<UIView>& view : {content.accessory, content.keys})
        if (view) {
            view->setFrame({0, height, bounds().width(), view->bounds().height()});
            addSubview(view);
            height += view->bounds().height();
        }
    return height + UIScreen::mainScreen()->profile().safeBottom;
}

void KeyboardPanel::moveTo(double top, const Completion& done) {
    const Rect frame = this->frame();
    UIView::animateWithDuration(
        duration,
        [&] {
            setFrame({0, top, frame.width(), frame.height()});
        },
        done);
}

void KeyboardPanel::rise(double height) {
    const double bottom = UIScreen::mainScreen()->bounds().height();
    // What is up already keeps its bottom where it is; what is on its way down turns round.
    const Rect start{0, up_ ? bottom - height : bottom, bounds().width(), height};
    if (frame() != start)
        UIView::performWithoutAnimation([&] { setFrame(start); });
    setHidden(false);
    up_ = true;
    moveTo(bottom - height, {});
    UIApplication::sharedApplication()->showKeyboard(height, duration);
}

void KeyboardPanel::sink() {
    if (!up_)
        return;
    up_ = false;
    const WeakRef<KeyboardPanel> weak = ref(this);
    moveTo(UIScreen::mainScreen()->bounds().height(), [weak](bool) {
        const auto panel = weak.lock();
        if (panel && !panel->up_)
            panel->setHidden(true);
    });
    UIApplication::sharedApplication()->hideKeyboard(duration);
}

}  // namespace zn
