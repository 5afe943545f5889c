#pragma once

#include "zarnic/platform/uikit/UIResponder.h"

namespace zn {

/// Which responder takes keys and text: at most one, held weakly. `UIResponder` moves it; the
/// application asks it. Main thread only.
class FirstResponder {
public:
    static FirstResponder& shared();

    Ref<UIResponder> current() const { return current_.lock(); }
    /// Cheap, and right for an object without an owner too.
    bool is(const UIResponder& responder) const { return current_.lock().get() == &responder; }
    /// Asks the present one to resign first; false when it refuses.
    bool make(const Ref<UIResponder>& responder);
    /// Nobody is first any more, if `responder` was.
    void clear(const UIResponder& responder);

private:
    WeakRef<UIResponder> current_;
};

}  // namespace zn
