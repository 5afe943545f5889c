#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "zarnic/platform/foundation/NSObject.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// Whether the screen can be seen and used: the seam behind the notice of the screen lock. Main
/// thread only.
class ZN_EXPORT DisplayStatus : public NSObject {
public:
    DisplayStatus();
    ~DisplayStatus() override;

    /// This machine's: the login session's hint that it is locked, and the desktop's screen saver.
    static Ref<DisplayStatus> systemImplementation();

    /// 0 while the session is locked or the screen saver runs, else 1; also where nobody can tell.
    /// Asks afresh, which may take up to half a second with a service that does not answer.
    virtual std::uint64_t state() = 0;

    /// Calls the handler once after each change, on the main queue. Ends when the token does.
    RunLoopToken observe(std::function<void()> handler);

protected:
    /// Begins to look, when somebody first observes.
    virtual void begin() = 0;
    /// Tells the observers of a change, later, on the main queue.
    void announceChange();

private:
    struct Observers;
    bool begun_ = false;
    std::unique_ptr<Observers> observers_;
};

}  // namespace zn
