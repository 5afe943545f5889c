#include <cstdint>
#include <limits>

#include "zarnic/UILabel+ZNCategory.h"
#include "zarnic/UIView+ZNCategory.h"
#include "zarnic/ZNNavigationController.h"
#include "zarnic/ZNPromptWindow.h"
#include "zarnic/ZNUIAdaptationHelper.h"
#include "zarnic/platform/drawing/NSValue.h"
#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {
namespace {

constexpr Size firstSize{120, 46};
constexpr double cornerRadius = 8;
/// Added to the measured text: 21 points at the left, 22 at the right, 15 above, 16 below.
constexpr Size padding{43, 31};
constexpr Point textOrigin{21, 15};
constexpr Size shadowOffset{0, 16};
constexpr double shadowRadius = 21;
constexpr double tick = 0.1f;

/// Half of what is left over, cut to a 32-bit integer toward zero.
double centred(double room, double extent) {
    return static_cast<std::int32_t>((room - extent) * 0.5);
}

Ref<UIColor> black(double alpha) {
    return UIColor::colorWithRed(0, 0, 0, alpha);
}

void addShadow(const Ref<UIView>& view, double alpha) {
    zn_AddShadowEffectColor(view, black(alpha), shadowOffset, shadowRadius, 1);
}

}  // namespace

const Ref<UIWindow>& ZNPromptWindow::promptWindow() {
    if (!promptWindow_) {
        promptWindow_ = make<UIWindow>(UIScreen::mainScreen()->bounds());
        promptWindow_->setBackgroundColor(UIColor::clearColor());
        promptWindow_->setWindowLevel(windowLevel_);
        promptWindow_->setRootViewController(make<ZNNavigationController>(ctr()));
    }
    return promptWindow_;
}

const Ref<ZNViewController>& ZNPromptWindow::ctr() {
    if (!ctr_) {
        ctr_ = make<ZNViewController>();
        ctr_->setStatusBarHide(false);
        ctr_->setStatusBarStyle(static_cast<std::int64_t>(UIStatusBarStyle::LightContent));
        ctr_->setStatusBarAnim(static_cast<std::int64_t>(UIStatusBarAnimation::Slide));
        ctr_->setNavigationBarHide(true);
        ctr_->view()->setBackgroundColor(UIColor::clearColor());
        ctr_->view()->addSubview(centerView());
    }
    return ctr_;
}

const Ref<UIView>& ZNPromptWindow::centerView() {
    if (!centerView_) {
        const double x = centred(ZNUIAdaptationHelper::Width(), firstSize.width);
        const double y = centred(ZNUIAdaptationHelper::Height(), firstSize.height);
        centerView_ = ZN_ViewWithColor(UIColor::clearColor(), Rect({x, y}, firstSize));
        centerView_->addSubview(maskView());
        centerView_->addSubview(msgLab());
    }
    return centerView_;
}

const Ref<UIView>& ZNPromptWindow::maskView() {
    if (!maskView_) {
        maskView_ = ZN_ViewWithColor(black(1), Rect({}, firstSize));
        maskView_->layer()->setCornerRadius(cornerRadius);
        maskView_->setClipsToBounds(true);
        maskView_->setAlpha(0.74);
    }
    return maskView_;
}

const Ref<UILabel>& ZNPromptWindow::msgLab() {
    if (!msgLab_) {
        msgLab_ = ZN_LabelWithColor(UIColor::clearColor(), {}, UIFont::systemFontOfSize(15),
                                    UIColor::colorWithRed(1, 1, 1, 1), Rect({}, firstSize));
        msgLab_->layer()->setCornerRadius(cornerRadius);
        msgLab_->setClipsToBounds(true);
        msgLab_->setTextAlignment(NSTextAlignment::Center);
        msgLab_->setNumberOfLines(0);
    }
    return msgLab_;
}

const Ref<NSTimer>& ZNPromptWindow::timer() {
    if (!timer_) {
        timer_ = NSTimer::timerWithTimeInterval(tick, ZN_ACTION(ref(this), timerRun_promptWindow),
                                                {}, true);
        NSRunLoop::currentRunLoop()->addTimer(timer_, NSRunLoopMode::Common);
        timer_->setFireDate(NSDate::distantFuture());
    }
    return timer_;
}

void ZNPromptWindow::layout() {
    const double width = ZNUIAdaptationHelper::Width();
    const double height = ZNUIAdaptationHelper::Height();
    const Size most{width * 3 / 5, std::numeric_limits<float>::max()};
    const Size text = msg_.empty() ? Size{}
                                   : boundingRectWithSize(
                                         msg_, most, NSStringDrawingOptions::UsesLineFragmentOrigin,
                                         msgLab()->font())
                                         .size;
    const Size toast{text.width + padding.width, text.height + padding.height};
    const Rect place({centred(width, toast.width), centred(height - keyboardHeight_, toast.height)},
                     toast);

    promptWindow()->setBackgroundColor(screenLock_ ? black(0.3) : UIColor::clearColor());
    promptWindow()->setFrame(screenLock_ ? UIScreen::mainScreen()->bounds() : place);
    centerView()->setFrame(screenLock_ ? place : promptWindow()->bounds());
    // Whichever of the two is as large as the toast casts the shadow.
    addShadow(promptWindow(), screenLock_ ? 0 : 0.6);
    addShadow(centerView(), screenLock_ ? 0.6 : 0);

    maskView()->setFrame(centerView()->bounds());
    msgLab()->setFrame({textOrigin.x, textOrigin.y, text.width + 1, text.height + 1});
    msgLab()->setText(msg_);
    ctr()->setStatusBarHide(statusBarHide_);
    ctr()->setStatusBarStyle(statusBarStyle_);
}

void ZNPromptWindow::keyboardWillShow_promptWindow(const Ref<NSNotification>& notification) {
    if (!notification->userInfo().isDictionary())
        return;
    const Dictionary info = notification->userInfo().dictionary();
    const auto frame = info[UIKeyboardFrameEndUserInfoKey].object<NSValue>();
    setKeyboardHeight(frame ? frame->rectValue().height() : 0);
    moveForKeyboard(info[UIKeyboardAnimationDurationUserInfoKey].doubleValue());
}

void ZNPromptWindow::keyboardWillHide_promptWindow(const Ref<NSNotification>&) {
    setKeyboardHeight(0);
    // On purpose: hiding does not read the notice's duration.
    moveForKeyboard(0.25);
}

void ZNPromptWindow::moveForKeyboard(double duration) {
    if (!showing_)
        return;
    const double y =
        centred(ZNUIAdaptationHelper::Height() - keyboardHeight_, zn_GetHeight(centerView()));
    const Ref<UIView> moved = screenLock_ ? centerView() : promptWindow();
    UIView::animateWithDuration(duration, [&] { zn_SetY(moved, y); });
}

}  // namespace zn
