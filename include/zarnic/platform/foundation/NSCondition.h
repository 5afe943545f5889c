#pragma once

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

class NSDate;

/// A lock and a place to wait for its holder's news. A signal that nobody waits for is lost. Waits
/// may end by themselves: test what you wait for, in a loop. Any thread.
class ZN_EXPORT NSCondition final : public NSObject {
    ZN_OBJECT(NSCondition, NSObject)
public:
    NSCondition();
    ~NSCondition() override;

    /// The condition's own lock, which is not recursive (the object lock is another one).
    void lock();
    void unlock();

    /// Releases the lock, waits, and takes it again; the caller holds it.
    void wait();
    /// The same, to a date at most; false when the date came first. Null waits without end.
    bool waitUntilDate(const Ref<NSDate>& limit);
    /// The same for a thread that has nothing to do: under a manual clock its date alone is no
    /// reason for time to go on.
    bool idleUntilDate(const Ref<NSDate>& limit);

    /// Wakes the one that has waited longest; with or without the lock.
    void signal();
    void broadcast();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
