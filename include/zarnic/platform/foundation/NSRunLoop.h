#pragma once

#include <functional>
#include <memory>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

class NSTimer;

/// Which timers of a loop fire: those of the running mode and those of the common modes.
enum class NSRunLoopMode { Default, Tracking, Common };

/// Undoes a registration when it is destroyed.
class ZN_EXPORT RunLoopToken {
public:
    RunLoopToken() = default;
    explicit RunLoopToken(std::function<void()> cancel);
    RunLoopToken(RunLoopToken&& other) noexcept;
    RunLoopToken& operator=(RunLoopToken&& other) noexcept;
    ~RunLoopToken();
    explicit operator bool() const { return static_cast<bool>(cancel_); }
    /// Undoes the registration now.
    void reset();
    /// Lets the registration stand.
    void detach();

private:
    std::function<void()> cancel_;
};

/// A thread's loop. A pass serves what is due in this order: timers and deadlines by their moments,
/// then (main loop only) the blocks that the main queue holds, then ready descriptors, then the
/// before-waiting handlers (the commit). What a pass adds waits for the next one. Runs may be
/// nested; a timer does not fire inside its own call-back. A call-back's exception leaves the run.
/// Registering, `stop` and `wakeUp` are for any thread, everything else for the loop's own.
class ZN_EXPORT NSRunLoop final : public NSObject {
    ZN_OBJECT(NSRunLoop, NSObject)
public:
    NSRunLoop();
    ~NSRunLoop() override;

    static Ref<NSRunLoop> mainRunLoop();
    /// The calling thread's, made on first use; it ends with the thread.
    static Ref<NSRunLoop> currentRunLoop();

    /// Holds the timer until it is invalid. A timer belongs to one loop: another one's is ignored.
    /// Added again in another mode it fires in both.
    void addTimer(const Ref<NSTimer>& timer, NSRunLoopMode mode);

    /// Runs until `stop`.
    void run();
    /// Runs until the moment (seconds since 1970), at least one pass.
    void runUntilDate(double since1970);
    /// One pass: what is due now, waiting at most `maximumWait` seconds for something to be.
    /// Returns whether anything ran.
    bool runPass(double maximumWait = 0);
    /// Ends the innermost `run` or `runUntilDate` after the present pass; with none running, the
    /// next one ends after its first pass.
    void stop();
    /// Ends a wait in progress.
    void wakeUp();

    NSRunLoopMode mode() const;
    void setMode(NSRunLoopMode mode);

    /// Calls `handler` with the ready `poll` events of the descriptor.
    RunLoopToken addDescriptor(int descriptor, short events, std::function<void(short)> handler);
    /// Calls `handler` at the end of every pass, lowest order first.
    RunLoopToken addBeforeWaiting(int order, std::function<void()> handler);
    /// Calls `handler` once, in the first pass at or after the moment on the monotonic clock.
    RunLoopToken addDeadline(double monotonic, std::function<void()> handler);
    /// The earliest moment (monotonic) at which a timer or deadline is due; infinity for never.
    double nextDeadline() const;

private:
    friend class ManualClock;
    friend class NSTimer;
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace zn
