#pragma once

#include <vector>

#include "zarnic/platform/foundation/Action.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// The platform's numbers, a bit set.
namespace UIControlEvents {
inline constexpr unsigned TouchDown = 1, TouchDownRepeat = 2, TouchDragInside = 4,
                          TouchDragOutside = 8, TouchDragEnter = 16, TouchDragExit = 32,
                          TouchUpInside = 64, TouchUpOutside = 128, TouchCancel = 256,
                          ValueChanged = 4096, PrimaryActionTriggered = 8192,
                          EditingDidBegin = 65536, EditingChanged = 131072, EditingDidEnd = 262144,
                          EditingDidEndOnExit = 524288, AllTouchEvents = 0xfff,
                          AllEvents = 0xffffffff;
}  // namespace UIControlEvents

/// The platform's numbers, a bit set.
namespace UIControlState {
inline constexpr unsigned Normal = 0, Highlighted = 1, Disabled = 2, Selected = 4, Focused = 8,
                          Application = 0x00FF0000;
}  // namespace UIControlState

/// A view that turns the touches of one finger into events. A finger counts as inside up to 70
/// points beyond the bounds, for dragging and for letting go alike. Main thread only.
class ZN_EXPORT UIControl : public UIView {
    ZN_OBJECT(UIControl, UIView)
public:
    UIControl();
    explicit UIControl(const Rect& frame);
    ~UIControl() override;

    /// Targets are held weakly. The same action added twice for an event is sent once for it;
    /// actions are sent in the order in which they were first added.
    void addTarget(const Action& action, unsigned events);
    /// An absent action means all of them.
    void removeTarget(const Action& action, unsigned events);
    /// The actions that would be sent for any of the events.
    std::vector<Action> actionsForControlEvents(unsigned events) const;
    /// Sends the actions of the events, lowest event first, with the control as the sender.
    void sendActionsForControlEvents(unsigned events);

    bool enabled() const { return enabled_; }
    /// A disabled control leaves touches to what lies above it in the responder chain; a touch in
    /// progress is cancelled.
    virtual void setEnabled(bool enabled);
    bool selected() const { return selected_; }
    virtual void setSelected(bool selected);
    bool highlighted() const { return highlighted_; }
    virtual void setHighlighted(bool highlighted);
    /// The bits of `UIControlState`.
    virtual unsigned state() const;

    bool tracking() const { return touch_ != nullptr; }
    /// Whether the finger that is being tracked is inside.
    bool touchInside() const { return touchInside_; }

    /// For subclasses: false stops the tracking of the touch.
    virtual bool beginTrackingWithTouch(const Ref<UITouch>&, const Ref<UIEvent>&) { return true; }
    virtual bool continueTrackingWithTouch(const Ref<UITouch>&, const Ref<UIEvent>&) {
        return true;
    }
    /// The touch is null when the control gave the tracking up by itself.
    virtual void endTrackingWithTouch(const Ref<UITouch>&, const Ref<UIEvent>&) {}
    virtual void cancelTrackingWithEvent(const Ref<UIEvent>&) {}

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) override;

protected:
    /// The events of a finger that lets go inside; buttons add the primary action.
    virtual unsigned upInsideEvents() const { return UIControlEvents::TouchUpInside; }
    /// Called after a bit of the state has changed.
    virtual void stateChanged() {}

private:
    struct Entry {
        Action action;
        unsigned events;
    };

    bool isInside(const Ref<UITouch>& touch) const;
    void sendActions(unsigned events, const Ref<UIEvent>& detail);
    bool sends(const Action& action, unsigned event) const;
    void trackMove(const Ref<UITouch>& touch, const Ref<UIEvent>& event);
    void cancelTracking(const Ref<UIEvent>& event);
    void stopTracking();

    std::vector<Entry> entries_;
    Ref<UITouch> touch_;
    bool touchInside_ = false;
    bool enabled_ = true;
    bool selected_ = false;
    bool highlighted_ = false;
};

}  // namespace zn
