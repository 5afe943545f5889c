#include "zarnic/platform/uikit/UIScreen.h"

#include "platform/uikit/screen/ScreenState.h"
#include "zarnic/platform/drawing/UIImage.h"

namespace zn {
namespace {

/// Runs `change` on layers that no view owns without animating it.
template <class Change>
void withoutAnimation(const Change& change) {
    CATransaction::begin();
    CATransaction::setDisableActions(true);
    change();
    CATransaction::commit();
}

}  // namespace

UIScreen::UIScreen() : state_(std::make_unique<State>()) {}

UIScreen::~UIScreen() = default;

void UIScreen::init() {
    NSObject::init();
    state_->root = make<CALayer>();
    state_->root->setName("screen");
    state_->statusBar = make<StatusBar>();
    state_->root->addSublayer(state_->statusBar->layer());
    withoutAnimation([this] { state_->root->setBackgroundColor({0, 0, 0, 1}); });
    setProfile(DeviceProfile());
}

Ref<UIScreen> UIScreen::mainScreen() {
    static const auto& screen = *new Ref<UIScreen>(make<UIScreen>());
    return screen;
}

Rect UIScreen::bounds() const {
    return Rect({0, 0}, state_->profile.size);
}

double UIScreen::scale() const {
    return state_->profile.scale;
}

const DeviceProfile& UIScreen::profile() const {
    return state_->profile;
}

double UIScreen::maximumFramesPerSecond() const {
    return state_->framesPerSecond;
}

void UIScreen::setMaximumFramesPerSecond(double framesPerSecond) {
    state_->framesPerSecond = framesPerSecond;
}

void UIScreen::setProfile(const DeviceProfile& profile) {
    state_->profile = profile;
    setUIGraphicsMainScreenScale(profile.scale);
    withoutAnimation([this] { state_->root->setFrame(bounds()); });
    state_->statusBar->setProfile(profile);
}

const Ref<CALayer>& UIScreen::rootLayer() const {
    return state_->root;
}

/// From the bottom: the windows below the status bar's level, the status bar, the others.
void UIScreen::State::placeLayer(const Ref<UIWindow>& window) {
    if (window->hidden()) {
        window->layer()->removeFromSuperlayer();
        return;
    }
    Ref<CALayer> below;
    if (window->windowLevel() >= UIWindowLevel::StatusBar)
        below = statusBar->layer();
    for (const Ref<UIWindow>& other : windows.visible()) {
        if (other == window)
            break;
        if (other->windowLevel() >= UIWindowLevel::StatusBar ||
            window->windowLevel() < UIWindowLevel::StatusBar)
            below = other->layer();
    }
    if (below)
        root->insertSublayerAbove(window->layer(), below);
    else
        root->insertSublayer(window->layer(), 0);
}

}  // namespace zn
