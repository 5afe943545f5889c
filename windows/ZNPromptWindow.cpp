#include "zarnic/ZNPromptWindow.h"

#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/ZNQuickHelper.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

/// Seconds of both fades, a single-precision number as the contract has it.
constexpr double fadeDuration = 0.3f;

void logParameterError() {
    NSLog("【ZNPromptWindow】参数错误，请检查.");
}

double durationFor(std::string_view msg) {
    const std::size_t length = utf16Length(msg);
    if (length <= 10)
        return 2.0;
    return length <= 20 ? 3.0 : 4.0;
}

}  // namespace

ZNPromptWindow::ZNPromptWindow() = default;

ZNPromptWindow::~ZNPromptWindow() = default;

Ref<ZNPromptWindow> ZNPromptWindow::SharedInstance() {
    // Never destroyed: a program may end while a message shows.
    static const auto& instance = *new Ref<ZNPromptWindow>(make<ZNPromptWindow>());
    return instance;
}

void ZNPromptWindow::init() {
    NSObject::init();
    setShowing(false);
    setKeyboardHeight(0);
    const auto center = NSNotificationCenter::defaultCenter();
    center->addObserver(ZN_ACTION(ref(this), keyboardWillShow_promptWindow),
                        UIKeyboardWillShowNotification);
    center->addObserver(ZN_ACTION(ref(this), keyboardWillHide_promptWindow),
                        UIKeyboardWillHideNotification);
}

void ZNPromptWindow::InitPromptWindow(double level) {
    SharedInstance()->setWindowLevel(level);
}

void ZNPromptWindow::ShowMsg(std::string_view msg, double duration, bool screenLock,
                             bool statusBarHide, std::int64_t statusBarStyle) {
    if (!(duration > 0.0 && zn_NotNull(msg)))
        return logParameterError();
    const Ref<ZNPromptWindow> shared = SharedInstance();
    const ObjectLock lock(shared);
    shared->setMsg(msg);
    shared->setDuration(duration);
    shared->setScreenLock(screenLock);
    shared->setStatusBarHide(statusBarHide);
    shared->setStatusBarStyle(statusBarStyle);
    // On purpose: only a toast that locks the screen honours the argument.
    if (!screenLock)
        shared->setStatusBarHide(true);
    ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew(false, 0.0, [shared] { shared->show(); });
}

void ZNPromptWindow::ShowMsg(std::string_view msg, double duration) {
    if (!zn_NotNull(msg))
        return logParameterError();
    ShowMsg(msg, duration, false, true, static_cast<std::int64_t>(UIStatusBarStyle::LightContent));
}

void ZNPromptWindow::ShowMsg(std::string_view msg) {
    if (!zn_NotNull(msg))
        return logParameterError();
    ShowMsg(msg, durationFor(msg), false, true,
            static_cast<std::int64_t>(UIStatusBarStyle::LightContent));
}

void ZNPromptWindow::Hide() {
    const Ref<ZNPromptWindow> shared = SharedInstance();
    const ObjectLock lock(shared);
    ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew(false, 0.0, [shared] { shared->hide(); });
}

void ZNPromptWindow::show() {
    ++shows_;
    if (showing_) {
        layout();
        if (fading())
            cancelFade();
        startCountDown();
        return;
    }
    setShowing(true);
    layout();
    fadeIn();
}

void ZNPromptWindow::fadeIn() {
    centerView()->setAlpha(0);
    promptWindow()->setAlpha(0);
    promptWindow()->setHidden(false);
    const Ref<ZNPromptWindow> self = ref(this);
    UIView::animateWithDuration(
        fadeDuration,
        [this] {
            promptWindow()->setAlpha(1.0);
            centerView()->setAlpha(1.0);
        },
        [self](bool finished) {
            if (finished)
                self->startCountDown();
        });
}

/// Below full alpha, or on the way there: during a fade the alpha already reads as its last value.
bool ZNPromptWindow::fading() {
    return promptWindow()->alpha() < 1.0 || promptWindow()->layer()->animates("opacity");
}

void ZNPromptWindow::cancelFade() {
    promptWindow()->layer()->removeAllAnimations();
    centerView()->layer()->removeAllAnimations();
    promptWindow()->setAlpha(1.0);
    centerView()->setAlpha(1.0);
}

void ZNPromptWindow::startCountDown() {
    setTime(NSDate::date()->timeIntervalSince1970() + duration_);
    timer()->setFireDate(NSDate::date());
}

void ZNPromptWindow::timerRun_promptWindow(const Ref<NSTimer>&) {
    if (NSDate::date()->timeIntervalSince1970() >= time_)
        Hide();
}

void ZNPromptWindow::hide() {
    timer()->setFireDate(NSDate::distantFuture());
    const Ref<ZNPromptWindow> self = ref(this);
    const unsigned shows = shows_;
    UIView::animateWithDuration(
        fadeDuration,
        [this] {
            promptWindow()->setAlpha(0.0);
            centerView()->setAlpha(0.0);
        },
        [self, shows](bool finished) {
            // A fade of what is faded out already moves nothing that a message shown in the same
            // pass could cut off: it finishes, after the message has come.
            if (!finished || shows != self->shows_)
                return;
            self->promptWindow()->setHidden(true);
            self->setShowing(false);
        });
}

}  // namespace zn
