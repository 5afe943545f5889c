#include "zarnic/platform/foundation/Dispatch.h"

#include "platform/foundation/runloop/MainQueue.h"
#include "platform/foundation/threads/GlobalPool.h"
#include "platform/foundation/threads/ThreadEntry.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {
namespace {

/// The loop of the one thread that waits for all delayed blocks of the global queue.
NSRunLoop& delayLoop() {
    static NSRunLoop& loop = []() -> NSRunLoop& {
        static const auto& made = *new Ref<NSRunLoop>(make<NSRunLoop>());
        startThread("delayed blocks", [] { made->run(); });
        return *made;
    }();
    return loop;
}

using Submit = void (*)(std::function<void()> block);

void submitAfter(NSRunLoop& loop, double delay, Submit submit, std::function<void()> block) {
    const double moment = Clock::shared().monotonic() + delay;
    auto handler = [submit, block = std::move(block)]() mutable { submit(std::move(block)); };
    loop.addDeadline(moment, std::move(handler)).detach();
}

}  // namespace

void dispatchMain(std::function<void()> block) {
    if (!block)
        return;
    MainQueue::shared().add(std::move(block));
    NSRunLoop::mainRunLoop()->wakeUp();
}

void dispatchGlobal(std::function<void()> block) {
    if (block)
        GlobalPool::shared().submit(std::move(block));
}

void dispatchMainAfter(double delay, std::function<void()> block) {
    if (!block)
        return;
    if (delay > 0)
        submitAfter(*NSRunLoop::mainRunLoop(), delay, dispatchMain, std::move(block));
    else
        dispatchMain(std::move(block));
}

void dispatchGlobalAfter(double delay, std::function<void()> block) {
    if (!block)
        return;
    if (delay > 0)
        submitAfter(delayLoop(), delay, dispatchGlobal, std::move(block));
    else
        dispatchGlobal(std::move(block));
}

}  // namespace zn
