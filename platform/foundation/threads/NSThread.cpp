#include "zarnic/platform/foundation/NSThread.h"

#include <atomic>
#include <cstdio>
#include <mutex>

#include "platform/foundation/threads/ThreadEntry.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

enum class Phase { New, Executing, Finished };

/// The main thread is number 1, the others are counted as their objects are made.
int nextNumber() {
    static std::atomic<int> last = 1;
    return ++last;
}

thread_local Ref<NSThread> callingThread;

}  // namespace

struct NSThread::State {
    std::function<void()> body;
    int number = 0;
    std::atomic<Phase> phase = Phase::New;
    mutable std::mutex nameMutex;
    std::string name;
};

NSThread::NSThread(std::function<void()> block) : state_(std::make_unique<State>()) {
    state_->body = std::move(block);
    state_->number = nextNumber();
}

NSThread::NSThread(const Action& action)
    : NSThread([action, target = action.target()] { action.send(); }) {}

NSThread::NSThread(Adopted) : state_(std::make_unique<State>()) {
    state_->number = isMainThread() ? 1 : nextNumber();
    state_->phase = Phase::Executing;
    if (isMainThread())
        state_->name = "main";
    else if (const auto* participant = ClockParticipant::current())
        state_->name = participant->name();
}

NSThread::~NSThread() = default;

bool NSThread::isMainThread() {
    return zn::isMainThread();
}

Ref<NSThread> NSThread::currentThread() {
    if (!callingThread)
        callingThread = adopt();
    return callingThread;
}

void NSThread::sleepForTimeInterval(double seconds) {
    Clock::shared().sleep(seconds);
}

void NSThread::start() {
    auto fresh = Phase::New;
    if (!state_->phase.compare_exchange_strong(fresh, Phase::Executing))
        throw NSException(NSInvalidArgumentException, "the thread has been started before");
    const std::string itsName = name();
    startThread(itsName.empty() ? "thread " + std::to_string(state_->number) : itsName,
                [self = ref(this)] { self->run(); });
}

std::string NSThread::name() const {
    std::lock_guard guard(state_->nameMutex);
    return state_->name;
}

void NSThread::setName(std::string_view name) {
    std::lock_guard guard(state_->nameMutex);
    state_->name = name;
}

bool NSThread::executing() const {
    return state_->phase == Phase::Executing;
}

bool NSThread::finished() const {
    return state_->phase == Phase::Finished;
}

std::string NSThread::description() const {
    const std::string itsName = name();
    char text[64];
    std::snprintf(text, sizeof text,
                  "<NSThread: %p>{number = %d, name = ", static_cast<const void*>(this),
                  state_->number);
    return text + (itsName.empty() ? "(null)" : itsName) + "}";
}

Ref<NSThread> NSThread::adopt() {
    Ref<NSThread> thread(new NSThread(Adopted{}));
    thread->init();
    return thread;
}

void NSThread::run() {
    callingThread = ref(this);
    if (state_->body)
        state_->body();
    // The target goes before anyone can see that the thread has ended.
    state_->body = nullptr;
    state_->phase = Phase::Finished;
}

}  // namespace zn
