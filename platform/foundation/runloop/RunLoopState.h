#pragma once

#include <poll.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/foundation/runloop/Schedule.h"
#include "platform/foundation/time/Waiter.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// Waits for its wake-up or for one of the descriptors.
class LoopWaiter final : public Waiter {
public:
    LoopWaiter();
    ~LoopWaiter() override;

    void setDescriptors(std::vector<pollfd> descriptors);
    bool block(Clock::Ticks until) override;
    bool unblock() override;

private:
    int event_;
    std::vector<pollfd> descriptors_;
};

struct NSRunLoop::State {
    struct Descriptor {
        pollfd wanted;
        std::function<void(short)> handler;
    };
    using DescriptorEntry = std::pair<const std::uint64_t, std::shared_ptr<Descriptor>>;
    /// Order, then first come, first served.
    using HandlerKey = std::pair<int, std::uint64_t>;

    enum class Phase { Awake, Asleep, Called };

    /// One pass without waiting; whether a timer, deadline, block or descriptor had something.
    bool pass();
    /// Waits until something of this loop is due, or `wake`, or the moment. Returns whether there
    /// is reason for a pass; false when the moment has come and nothing else.
    bool sleepUntil(Clock::Ticks until);
    void runUntil(Clock::Ticks until);
    /// Makes the loop begin another pass.
    void wake();
    /// Makes a sleeping loop look again at what it waits for.
    void wakeIfAsleep();
    void removeDescriptor(std::uint64_t id);
    void removeBeforeWaiting(const HandlerKey& key);

    Schedule schedule;
    std::atomic<NSRunLoopMode> mode = NSRunLoopMode::Default;
    std::atomic<bool> stopped = false;
    bool isMain = false;

    std::mutex mutex;
    std::uint64_t lastRegistration = 0;
    std::map<std::uint64_t, std::shared_ptr<Descriptor>> descriptors;
    std::map<HandlerKey, std::shared_ptr<std::function<void()>>> beforeWaiting;

private:
    bool fireDue();
    bool handleDescriptors();
    void callBeforeWaiting();
    std::vector<DescriptorEntry> descriptorEntries();
    static std::vector<pollfd> wantedOf(const std::vector<DescriptorEntry>& entries);

    LoopWaiter waiter_;
    std::atomic<Phase> phase_ = Phase::Awake;
};

}  // namespace zn
