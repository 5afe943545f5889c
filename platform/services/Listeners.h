#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {

/// Handlers that are told something later, on the main queue, each in the order of the tellings and
/// none after its token has ended. Main thread only.
template <class... Arguments>
class Listeners {
public:
    using Handler = std::function<void(Arguments...)>;
    using Identifier = std::uint64_t;

    Identifier add(Handler handler) {
        handlers_->emplace(next_, std::move(handler));
        return next_++;
    }

    /// Ends the listener when it goes; this object may go before.
    RunLoopToken token(Identifier listener) const {
        return RunLoopToken([handlers = handlers_, listener] { handlers->erase(listener); });
    }

    void tell(Identifier listener, Arguments... arguments) const {
        dispatchMain([handlers = handlers_, listener, arguments...] {
            const auto found = handlers->find(listener);
            if (found == handlers->end())
                return;
            // The handler may end its own registration.
            const Handler handler = found->second;
            handler(arguments...);
        });
    }

    void tellAll(Arguments... arguments) const {
        for (const auto& [listener, handler] : *handlers_)
            tell(listener, arguments...);
    }

private:
    std::shared_ptr<std::map<Identifier, Handler>> handlers_ =
        std::make_shared<std::map<Identifier, Handler>>();
    Identifier next_ = 0;
};

}  // namespace zn
