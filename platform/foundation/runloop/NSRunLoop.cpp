#include "zarnic/platform/foundation/NSRunLoop.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/foundation/runloop/RunLoopState.h"
#include "platform/foundation/runloop/TimerState.h"
#include "platform/foundation/threads/ThreadEntry.h"

namespace zn {
namespace {

/// `Clock::monotonic` the other way round; what no clock reaches is never.
Clock::Ticks ticksAtMonotonic(double monotonic) {
    constexpr double unreachable = 9e9;
    return monotonic < unreachable ? Clock::Ticks(std::llround(std::max(monotonic, 0.0) * 1e9))
                                   : Clock::never;
}

}  // namespace

RunLoopToken::RunLoopToken(std::function<void()> cancel) : cancel_(std::move(cancel)) {}

RunLoopToken::RunLoopToken(RunLoopToken&& other) noexcept
    : cancel_(std::exchange(other.cancel_, nullptr)) {}

RunLoopToken& RunLoopToken::operator=(RunLoopToken&& other) noexcept {
    if (this != &other) {
        reset();
        cancel_ = std::exchange(other.cancel_, nullptr);
    }
    return *this;
}

RunLoopToken::~RunLoopToken() {
    reset();
}

void RunLoopToken::reset() {
    if (const auto cancel = std::exchange(cancel_, nullptr))
        cancel();
}

void RunLoopToken::detach() {
    cancel_ = nullptr;
}

NSRunLoop::NSRunLoop() : state_(std::make_shared<State>()) {}

NSRunLoop::~NSRunLoop() = default;

Ref<NSRunLoop> NSRunLoop::mainRunLoop() {
    static const auto& loop = *new Ref<NSRunLoop>([] {
        auto made = make<NSRunLoop>();
        made->state_->isMain = true;
        return made;
    }());
    return loop;
}

Ref<NSRunLoop> NSRunLoop::currentRunLoop() {
    if (isMainThread())
        return mainRunLoop();
    thread_local const Ref<NSRunLoop> loop = make<NSRunLoop>();
    return loop;
}

void NSRunLoop::addTimer(const Ref<NSTimer>& timer, NSRunLoopMode mode) {
    if (timer)
        timer->state_->join(state_, mode);
}

void NSRunLoop::run() {
    state_->runUntil(Clock::never);
}

void NSRunLoop::runUntilDate(double since1970) {
    const Clock& clock = Clock::shared();
    state_->runUntil(clock.ticks() + ticksUntilDate(clock, since1970));
}

bool NSRunLoop::runPass(double maximumWait) {
    if (state_->pass())
        return true;
    const bool waits = maximumWait > 0;
    return waits && state_->sleepUntil(Clock::shared().ticks() + ticksFromSeconds(maximumWait)) &&
           state_->pass();
}

void NSRunLoop::stop() {
    state_->stopped = true;
    state_->wake();
}

void NSRunLoop::wakeUp() {
    state_->wake();
}

NSRunLoopMode NSRunLoop::mode() const {
    return state_->mode;
}

void NSRunLoop::setMode(NSRunLoopMode mode) {
    state_->mode = mode;
}

RunLoopToken NSRunLoop::addDescriptor(int descriptor, short events,
                                      std::function<void(short)> handler) {
    auto entry = std::make_shared<State::Descriptor>();
    *entry = {{descriptor, events, 0}, std::move(handler)};
    std::unique_lock lock(state_->mutex);
    const auto id = ++state_->lastRegistration;
    state_->descriptors.emplace(id, std::move(entry));
    lock.unlock();
    state_->wakeIfAsleep();
    return RunLoopToken([weak = std::weak_ptr(state_), id] {
        if (const auto state = weak.lock())
            state->removeDescriptor(id);
    });
}

RunLoopToken NSRunLoop::addBeforeWaiting(int order, std::function<void()> handler) {
    auto entry = std::make_shared<std::function<void()>>(std::move(handler));
    std::lock_guard guard(state_->mutex);
    const State::HandlerKey key{order, ++state_->lastRegistration};
    state_->beforeWaiting.emplace(key, std::move(entry));
    return RunLoopToken([weak = std::weak_ptr(state_), key] {
        if (const auto state = weak.lock())
            state->removeBeforeWaiting(key);
    });
}

RunLoopToken NSRunLoop::addDeadline(double monotonic, std::function<void()> handler) {
    const auto key = state_->schedule.add(NSRunLoopMode::Common, ticksAtMonotonic(monotonic),
                                          {nullptr, std::move(handler)});
    state_->wakeIfAsleep();
    return RunLoopToken([weak = std::weak_ptr(state_), key] {
        if (const auto state = weak.lock())
            state->schedule.remove(NSRunLoopMode::Common, key);
    });
}

double NSRunLoop::nextDeadline() const {
    return secondsFromTicks(state_->schedule.next(state_->mode));
}

}  // namespace zn
