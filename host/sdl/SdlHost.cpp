#include "zarnic/sdl/SdlHost.h"

#include <poll.h>

#include "host/sdl/SdlInput.h"
#include "host/sdl/SdlText.h"
#include "host/sdl/SdlWindow.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/host/ScreenDriver.h"

namespace zn {
namespace {

/// After the screen was painted: what came in meanwhile is handled in the next pass.
constexpr int inputOrder = CACommitOrder + 2000;
/// How often input is looked for where SDL has no descriptor to wait for (a bare panel).
constexpr double pollInterval = 1.0 / 120;

}  // namespace

struct SdlHost::State {
    State(std::unique_ptr<SdlWindow> made, const DeviceProfile& device)
        : window(std::move(made)),
          driver(device, [this](const auto& damage) { present(damage); }),
          input(*window, device.size),
          textSession(*window, device.size) {}

    void present(const std::vector<PixelRect>& damage) {
        const Compositor& compositor = driver.compositor();
        window->update(compositor.pixels(), compositor.pixelWidth(), damage);
        window->present();
    }

    /// Takes what has come in; says so to the loop, which would wait otherwise.
    void takeInput() {
        const SdlInput::Taken taken = input.take();
        textSession.update();
        if (taken.exposed)
            window->present();
        if (taken.quit)
            NSRunLoop::mainRunLoop()->stop();
        if (taken.any)
            NSRunLoop::mainRunLoop()->wakeUp();
    }

    void poll() {
        deadline = NSRunLoop::mainRunLoop()->addDeadline(Clock::shared().monotonic() + pollInterval,
                                                         [this] { poll(); });
    }

    std::unique_ptr<SdlWindow> window;
    ScreenDriver driver;
    SdlInput input;
    SdlTextSession textSession;
    RunLoopToken beforeWaiting;
    RunLoopToken descriptor;
    RunLoopToken deadline;
};

SdlHost::SdlHost(std::unique_ptr<State> state) : state_(std::move(state)) {}

SdlHost::~SdlHost() = default;

std::unique_ptr<SdlHost> SdlHost::open(const std::string& title, const DeviceProfile& device,
                                       std::string& problem) {
    auto window = SdlWindow::open(title, device, problem);
    if (!window)
        return nullptr;
    SdlClipboard::install();
    return std::unique_ptr<SdlHost>(
        new SdlHost(std::make_unique<State>(std::move(window), device)));
}

void SdlHost::run() {
    const auto loop = NSRunLoop::mainRunLoop();
    state_->beforeWaiting =
        loop->addBeforeWaiting(inputOrder, [state = state_.get()] { state->takeInput(); });
    if (const auto descriptor = state_->window->connection())
        state_->descriptor = loop->addDescriptor(*descriptor, POLLIN, [](short) {});
    else
        state_->poll();
    state_->driver.paint();
    loop->run();
    state_->beforeWaiting.reset();
    state_->descriptor.reset();
    state_->deadline.reset();
}

}  // namespace zn
