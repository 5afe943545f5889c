#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Action.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// A thread of its own for a block or an action. It lives, with its target, until that returns, and
/// nobody joins it; an exception that leaves it is logged and ends the process.
class ZN_EXPORT NSThread final : public NSObject {
    ZN_OBJECT(NSThread, NSObject)
public:
    explicit NSThread(std::function<void()> block);
    /// Owns the action's target until the thread ends.
    explicit NSThread(const Action& action);
    ~NSThread() override;

    /// Whether the caller is the thread that the program began with.
    static bool isMainThread();
    /// The calling thread's object, also for threads that were begun elsewhere.
    static Ref<NSThread> currentThread();
    /// Blocks the caller by the process's clock; zero or less returns at once.
    static void sleepForTimeInterval(double seconds);

    /// Begins the thread. Throws `NSInvalidArgumentException` the second time.
    void start();

    /// Empty unless set. Debuggers show its first 15 bytes when it is set before the start.
    std::string name() const;
    void setName(std::string_view name);
    bool executing() const;
    bool finished() const;
    /// `<NSThread: 0x...>{number = 2, name = (null)}`.
    std::string description() const override;

private:
    /// For a thread that runs already.
    struct Adopted {};
    explicit NSThread(Adopted);
    static Ref<NSThread> adopt();
    void run();

    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
