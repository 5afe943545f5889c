#pragma once

#include <memory>
#include <vector>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

class UIEvent;
class UITouch;

using TouchSet = std::vector<Ref<UITouch>>;

/// Whatever can take events: views, controllers, windows, the application. Main thread only.
class ZN_EXPORT UIResponder : public NSObject {
    ZN_OBJECT(UIResponder, NSObject)
public:
    /// View: its controller if it is a controller's root view, else the superview; controller: its
    /// view's superview; window: the application.
    virtual Ref<UIResponder> nextResponder() const { return nullptr; }

    virtual bool canBecomeFirstResponder() const { return false; }
    virtual bool canResignFirstResponder() const { return true; }
    /// Asks the present first responder to resign. False when that one or this one refuses.
    virtual bool becomeFirstResponder();
    /// True when it is not the first responder afterwards.
    virtual bool resignFirstResponder();
    virtual bool isFirstResponder() const;

    /// Passed on along the chain unless overridden.
    virtual void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event);
    virtual void touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event);
    virtual void touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event);
    virtual void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event);
};

}  // namespace zn
