#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/uikit/touch/GestureArbiter.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/uikit/UIEvent.h"

namespace zn {

/// Brings fingers to recognisers and views: finds the view under a finger that comes down, and
/// tells it and the recognisers above it what becomes of the finger, whatever they do meanwhile to
/// views, windows or each other. Main thread only.
class TouchDispatcher {
public:
    static TouchDispatcher& shared();

    void touchDown(std::int64_t finger, Point place);
    void touchMove(std::int64_t finger, Point place);
    void touchUp(std::int64_t finger, Point place);
    void touchCancel(std::int64_t finger);
    /// Cancels the touches whose window is hidden or whose view has left its window.
    void cancelDetached();

    /// Whether the touch's view has heard of it and not yet of its end.
    bool viewHas(const Ref<UITouch>& touch) const;

    void requestState(const Ref<UIGestureRecognizer>& recognizer, UIGestureRecognizerState state);
    void stopRecognizer(const Ref<UIGestureRecognizer>& recognizer);

private:
    /// What the view knows of a touch.
    enum class Delivery { Blocked, Held, Delivered, Finished };
    struct Contact {
        std::int64_t finger;
        Ref<UITouch> touch;
        Point start;
        std::vector<WeakRef<UIGestureRecognizer>> recognizers;
        Delivery delivery = Delivery::Blocked;
        bool lifted = false;
    };
    using ContactRef = std::shared_ptr<Contact>;
    using RecognizerHandler = void (UIGestureRecognizer::*)(const TouchSet&, const Ref<UIEvent>&);
    using ResponderHandler = void (UIResponder::*)(const TouchSet&, const Ref<UIEvent>&);
    struct LastTap {
        double time;
        Point place;
        int count;
    };

    TouchDispatcher();
    void perform(const std::function<void()>& work);
    void settle();

    ContactRef contactOf(std::int64_t finger) const;
    ContactRef land(std::int64_t finger, Point place, const Ref<UIView>& view);
    int tapCountAt(Point place, double time) const;
    void collectRecognizers(const ContactRef& contact);
    void lift(const ContactRef& contact, UITouchPhase phase);
    void stamp(const ContactRef& contact, UITouchPhase phase, Point place);
    bool isBlocked(const Contact& contact) const;

    void tellRecognizers(const ContactRef& contact, RecognizerHandler handler);
    void tellView(const ContactRef& contact, ResponderHandler handler);
    void deliverBegan(const ContactRef& contact);
    void deliverEnd(const ContactRef& contact);
    void deliverHeld();
    void cancelInView(const ContactRef& contact);
    void cancelInViews(const TouchSet& touches);
    void refreshEvent();

    GestureArbiter gestures_;
    std::vector<ContactRef> contacts_;
    Ref<UIEvent> event_;
    LastTap lastTap_{0, {}, 0};
    /// Events within events: what is finished is put away after the outermost.
    int depth_ = 0;
    RunLoopToken endOfPass_;
};

}  // namespace zn
