#include "zarnic/testing/Stage.h"

#include <cmath>
#include <mutex>

#include "testing/TemporaryHome.h"
#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/services/Services.h"
#include "zarnic/platform/uikit/UIApplication.h"

namespace zn {
namespace {

constexpr double tapDuration = 0.05;
constexpr double stepsPerSecond = 60;

Ref<UIApplication> application() {
    return UIApplication::sharedApplication();
}

/// Puts the implementation in the place of the process's own, and keeps it.
template <class Seam, class Fake>
Ref<Fake> installed() {
    const auto fake = make<Fake>();
    Services::replace<Seam>(fake);
    return fake;
}

std::shared_ptr<ManualClock> installedClock(double now) {
    const auto clock = std::make_shared<ManualClock>(now);
    Clock::setShared(clock);
    return clock;
}

}  // namespace

struct Stage::State {
    explicit State(const Options& options)
        : clock(installedClock(options.now)),
          device(installed<DeviceFacts, FakeDeviceFacts>()),
          urlOpener(installed<URLOpener, FakeURLOpener>()),
          bluetooth(installed<BluetoothAdapter, FakeBluetoothAdapter>()),
          display(installed<DisplayStatus, FakeDisplayStatus>()),
          http(installed<HttpTransport, FakeHttpTransport>()),
          host(options.device, options.framesPerSecond) {
        setLogSink([this](std::string_view line) {
            const std::lock_guard guard(logMutex);
            log.emplace_back(line);
        });
    }
    ~State() { setLogSink({}); }

    const TemporaryHome home;
    std::shared_ptr<ManualClock> clock;
    Ref<FakeDeviceFacts> device;
    Ref<FakeURLOpener> urlOpener;
    Ref<FakeBluetoothAdapter> bluetooth;
    Ref<FakeDisplayStatus> display;
    Ref<FakeHttpTransport> http;
    HeadlessHost host;
    std::vector<Ref<UIWindow>> windows;
    std::mutex logMutex;
    std::vector<std::string> log;
};

Stage::Stage() : Stage(Options()) {}

Stage::Stage(const Options& options) : state_(std::make_unique<State>(options)) {}

Stage::~Stage() = default;

ManualClock& Stage::clock() {
    return *state_->clock;
}

HeadlessHost& Stage::host() {
    return state_->host;
}

FakeDeviceFacts& Stage::device() {
    return *state_->device;
}

FakeURLOpener& Stage::urlOpener() {
    return *state_->urlOpener;
}

FakeBluetoothAdapter& Stage::bluetooth() {
    return *state_->bluetooth;
}

FakeDisplayStatus& Stage::display() {
    return *state_->display;
}

FakeHttpTransport& Stage::http() {
    return *state_->http;
}

void Stage::advance(double seconds) {
    clock().advance(seconds);
}

void Stage::settle() {
    clock().settle();
}

Ref<UIWindow> Stage::show(const Ref<UIViewController>& root) {
    const auto window = make<UIWindow>(UIScreen::mainScreen()->bounds());
    window->setRootViewController(root);
    window->makeKeyAndVisible();
    state_->windows.push_back(window);
    return window;
}

void Stage::touchDown(Point place, std::int64_t finger) {
    application()->touchDown(finger, place);
    settle();
}

void Stage::touchMove(Point place, std::int64_t finger) {
    application()->touchMove(finger, place);
    settle();
}

void Stage::touchUp(Point place, std::int64_t finger) {
    application()->touchUp(finger, place);
    settle();
}

void Stage::tap(Point place) {
    touchDown(place);
    advance(tapDuration);
    touchUp(place);
}

void Stage::tap(const Ref<UIView>& view) {
    const Ref<UIWindow> window = view->window();
    const Rect inWindow = view->convertRectToView(view->bounds(), nullptr);
    tap(window->convertRectToWindow(inWindow, nullptr).center());
}

void Stage::drag(Point from, Point to, double duration) {
    touchDown(from);
    const int steps = std::max(1, static_cast<int>(std::lround(duration * stepsPerSecond)));
    for (int step = 1; step <= steps; ++step) {
        advance(duration / steps);
        const double part = static_cast<double>(step) / steps;
        touchMove({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
    }
    touchUp(to);
}

void Stage::type(std::string_view text) {
    application()->insertText(text);
    settle();
}

void Stage::pressKey(UIKeyboardHIDUsage key, unsigned modifiers) {
    application()->pressKey({key, modifiers, {}});
    settle();
}

void Stage::pressShortcut(std::string_view character, unsigned modifiers) {
    application()->pressKey({UIKeyboardHIDUsage::Unknown, modifiers, std::string(character)});
    settle();
}

void Stage::compose(std::string_view text) {
    application()->setMarkedText(text, {text.size(), 0});
    settle();
}

void Stage::keyboard(double height, double duration) {
    if (height > 0)
        application()->showKeyboard(height, duration);
    else
        application()->hideKeyboard(duration);
}

Ref<UIImage> Stage::snapshot() {
    settle();
    return state_->host.snapshot();
}

std::vector<std::string> Stage::takeLog() {
    const std::lock_guard guard(state_->logMutex);
    return std::exchange(state_->log, {});
}

}  // namespace zn
