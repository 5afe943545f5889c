#include "platform/uikit/touch/TouchDispatcher.h"

#include <algorithm>
#include <cmath>

#include "platform/uikit/scrolling/ContentTouches.h"
#include "platform/uikit/scrolling/StatusBarTap.h"
#include "platform/uikit/view/ScreenSpace.h"
#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/uikit/UIApplication.h"

namespace zn {
namespace {

/// Seconds between two taps that count together, and points between their places.
constexpr double tapInterval = 0.35;
constexpr double tapDistance = 45;
/// Before the layers are committed, so that what a cancelled touch changes is in that commit.
constexpr int endOfPassOrder = -2000;

bool isPlace(Point place) {
    return std::isfinite(place.x) && std::isfinite(place.y);
}

/// The view under a point of the screen: windows are asked from front to back.
Ref<UIView> viewAt(Point place, const Ref<UIEvent>& event) {
    const auto windows = UIApplication::sharedApplication()->windows();
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        const Point inWindow = (*window)->convertPointFromWindow(place, nullptr);
        if (const Ref<UIView> view = (*window)->hitTest(inWindow, event))
            return view;
    }
    return nullptr;
}

}  // namespace

TouchDispatcher& TouchDispatcher::shared() {
    static auto& dispatcher = *new TouchDispatcher;
    return dispatcher;
}

TouchDispatcher::TouchDispatcher()
    : gestures_([this](const TouchSet& touches) { cancelInViews(touches); }),
      event_(make<UIEvent>()),
      endOfPass_(NSRunLoop::mainRunLoop()->addBeforeWaiting(endOfPassOrder,
                                                            [this] { cancelDetached(); })) {}

void TouchDispatcher::perform(const std::function<void()>& work) {
    struct Depth {
        explicit Depth(int& depth) : value(depth) { ++value; }
        ~Depth() { --value; }
        int& value;
    };
    const Depth depth(depth_);
    work();
    // What user code does while things are put away counts as inside.
    if (depth_ == 1)
        settle();
}

void TouchDispatcher::settle() {
    deliverHeld();
    gestures_.resetFinished();
    std::erase_if(contacts_, [](const ContactRef& contact) {
        return contact->lifted &&
               (contact->delivery == Delivery::Blocked || contact->delivery == Delivery::Finished);
    });
    refreshEvent();
}

void TouchDispatcher::refreshEvent() {
    event_->touches_.clear();
    for (const ContactRef& contact : contacts_)
        if (!contact->lifted)
            event_->touches_.push_back(contact->touch);
}

TouchDispatcher::ContactRef TouchDispatcher::contactOf(std::int64_t finger) const {
    const auto found =
        std::find_if(contacts_.begin(), contacts_.end(), [finger](const ContactRef& contact) {
            return contact->finger == finger && !contact->lifted;
        });
    return found == contacts_.end() ? nullptr : *found;
}

void TouchDispatcher::touchDown(std::int64_t finger, Point place) {
    if (!isPlace(place))
        return;
    touchCancel(finger);
    cancelDetached();
    perform([&] {
        const Ref<UIView> view = viewAt(place, event_);
        if (!view)
            return;
        const ContactRef contact = land(finger, place, view);
        tellRecognizers(contact, &UIGestureRecognizer::touchesBegan);
        if (gestures_.claims(contact->touch))
            contact->delivery = Delivery::Blocked;
        // Earlier touches that were held for the same gesture go first.
        deliverHeld();
    });
}

TouchDispatcher::ContactRef TouchDispatcher::land(std::int64_t finger, Point place,
                                                  const Ref<UIView>& view) {
    const auto contact = std::make_shared<Contact>();
    contact->finger = finger;
    contact->touch = make<UITouch>();
    contact->start = place;
    UITouch& touch = *contact->touch;
    touch.location_ = place;
    touch.view_ = view;
    touch.window_ = view->window();
    stamp(contact, UITouchPhase::Began, place);
    touch.tapCount_ = tapCountAt(place, touch.timestamp_);
    lastTap_ = {touch.timestamp_, place, touch.tapCount_};
    contact->delivery = isBlocked(*contact) ? Delivery::Blocked : Delivery::Held;
    contacts_.push_back(contact);
    refreshEvent();
    collectRecognizers(contact);
    return contact;
}

int TouchDispatcher::tapCountAt(Point place, double time) const {
    const bool follows =
        time - lastTap_.time <= tapInterval && distance(place, lastTap_.place) <= tapDistance;
    return follows ? lastTap_.count + 1 : 1;
}

/// A view without multiple touches hears of one finger at a time, and an exclusive one shares its
/// window with no other view.
bool TouchDispatcher::isBlocked(const Contact& contact) const {
    const Ref<UIView> view = contact.touch->view();
    return std::any_of(contacts_.begin(), contacts_.end(), [&](const ContactRef& other) {
        const Ref<UIView> busy = other->touch->view();
        if (other->lifted || !busy ||
            (other->delivery != Delivery::Held && other->delivery != Delivery::Delivered))
            return false;
        if (busy == view)
            return !view->multipleTouchEnabled();
        return (busy->exclusiveTouch() || view->exclusiveTouch()) &&
               other->touch->window() == contact.touch->window();
    });
}

void TouchDispatcher::collectRecognizers(const ContactRef& contact) {
    for (Ref<UIView> view = contact->touch->view(); view; view = view->superview()) {
        const std::vector<Ref<UIGestureRecognizer>> recognizers = view->gestureRecognizers();
        for (const auto& recognizer : recognizers) {
            if (!GestureArbiter::listens(*recognizer))
                continue;
            const auto delegate = recognizer->delegate();
            if (delegate &&
                !delegate->gestureRecognizerShouldReceiveTouch(recognizer, contact->touch))
                continue;
            gestures_.addTouch(recognizer, contact->touch);
            contact->recognizers.push_back(recognizer);
        }
    }
}

void TouchDispatcher::stamp(const ContactRef& contact, UITouchPhase phase, Point place) {
    for (const ContactRef& other : contacts_)
        other->touch->phase_ = UITouchPhase::Stationary;
    UITouch& touch = *contact->touch;
    touch.phase_ = phase;
    touch.previous_ = touch.location_;
    touch.location_ = place;
    touch.timestamp_ = event_->timestamp_ = Clock::shared().monotonic();
}

void TouchDispatcher::touchMove(std::int64_t finger, Point place) {
    cancelDetached();
    perform([&] {
        const ContactRef contact = contactOf(finger);
        if (!contact || !isPlace(place) || contact->touch->location_ == place)
            return;
        stamp(contact, UITouchPhase::Moved, place);
        tellRecognizers(contact, &UIGestureRecognizer::touchesMoved);
        if (contact->delivery == Delivery::Delivered)
            tellView(contact, &UIResponder::touchesMoved);
    });
}

void TouchDispatcher::touchUp(std::int64_t finger, Point place) {
    cancelDetached();
    perform([&] {
        const ContactRef contact = contactOf(finger);
        if (!contact)
            return;
        stamp(contact, UITouchPhase::Ended, isPlace(place) ? place : contact->touch->location_);
        const bool strayed = distance(contact->touch->location_, contact->start) > tapDistance;
        lastTap_.time = contact->touch->timestamp_;
        lastTap_.count = strayed ? 0 : contact->touch->tapCount_;
        const bool tapsStatusBar =
            !strayed && !gestures_.claims(contact->touch) && StatusBarTap::isIn(contact->start);
        lift(contact, UITouchPhase::Ended);
        if (tapsStatusBar)
            StatusBarTap::scrollToTop(contact->touch->window());
    });
}

void TouchDispatcher::touchCancel(std::int64_t finger) {
    perform([&] {
        const ContactRef contact = contactOf(finger);
        if (!contact)
            return;
        stamp(contact, UITouchPhase::Cancelled, contact->touch->location_);
        lift(contact, UITouchPhase::Cancelled);
    });
}

void TouchDispatcher::lift(const ContactRef& contact, UITouchPhase phase) {
    contact->lifted = true;
    const bool ended = phase == UITouchPhase::Ended;
    tellRecognizers(contact, ended ? &UIGestureRecognizer::touchesEnded
                                   : &UIGestureRecognizer::touchesCancelled);
    gestures_.removeTouch(contact->touch);
    if (!ended)
        cancelInView(contact);
}

void TouchDispatcher::cancelDetached() {
    perform([&] {
        const auto contacts = contacts_;
        for (const ContactRef& contact : contacts) {
            const Ref<UIWindow> window = contact->touch->window();
            const Ref<UIView> view = contact->touch->view();
            if (!contact->lifted && (!window || window->hidden()))
                touchCancel(contact->finger);
            else if (!view || view->window() != window)
                cancelInView(contact);
        }
        gestures_.stopDetached();
    });
}

void TouchDispatcher::tellRecognizers(const ContactRef& contact, RecognizerHandler handler) {
    const TouchSet touches{contact->touch};
    const auto recognizers = contact->recognizers;
    for (const auto& weak : recognizers) {
        const Ref<UIGestureRecognizer> recognizer = weak.lock();
        if (recognizer && GestureArbiter::hears(*recognizer, contact->touch))
            ((*recognizer).*handler)(touches, event_);
    }
}

void TouchDispatcher::tellView(const ContactRef& contact, ResponderHandler handler) {
    if (const Ref<UIView> view = contact->touch->view())
        ((*view).*handler)({contact->touch}, event_);
}

/// A view that hears late of a touch finds it where it came down.
void TouchDispatcher::deliverBegan(const ContactRef& contact) {
    UITouch& touch = *contact->touch;
    // Whoever is asked may come back here.
    contact->delivery = Delivery::Finished;
    if (!ContentTouches::mayBegin(contact->touch, event_))
        return;
    const UITouchPhase phase = touch.phase_;
    const Point place = touch.location_;
    contact->delivery = Delivery::Delivered;
    touch.phase_ = UITouchPhase::Began;
    touch.location_ = contact->start;
    tellView(contact, &UIResponder::touchesBegan);
    if (touch.phase_ != UITouchPhase::Began)
        return;
    touch.phase_ = phase;
    touch.location_ = place;
    if (place != contact->start && contact->delivery == Delivery::Delivered)
        tellView(contact, &UIResponder::touchesMoved);
}

void TouchDispatcher::deliverEnd(const ContactRef& contact) {
    contact->delivery = Delivery::Finished;
    contact->touch->phase_ = UITouchPhase::Ended;
    tellView(contact, &UIResponder::touchesEnded);
}

void TouchDispatcher::deliverHeld() {
    const auto contacts = contacts_;
    for (const ContactRef& contact : contacts) {
        if (contact->delivery == Delivery::Held && !gestures_.delaysBegan(contact->touch))
            deliverBegan(contact);
        if (contact->delivery == Delivery::Delivered && contact->lifted &&
            !gestures_.delaysEnded(contact->touch))
            deliverEnd(contact);
    }
}

void TouchDispatcher::cancelInView(const ContactRef& contact) {
    const bool known = contact->delivery == Delivery::Delivered;
    if (contact->delivery != Delivery::Blocked)
        contact->delivery = Delivery::Finished;
    if (!known)
        return;
    // For the view alone: the recognisers still see what the finger does.
    const UITouchPhase phase = contact->touch->phase_;
    contact->touch->phase_ = UITouchPhase::Cancelled;
    tellView(contact, &UIResponder::touchesCancelled);
    contact->touch->phase_ = phase;
}

void TouchDispatcher::cancelInViews(const TouchSet& touches) {
    const auto contacts = contacts_;
    for (const ContactRef& contact : contacts)
        if (std::find(touches.begin(), touches.end(), contact->touch) != touches.end())
            cancelInView(contact);
}

bool TouchDispatcher::viewHas(const Ref<UITouch>& touch) const {
    return std::any_of(contacts_.begin(), contacts_.end(), [&](const ContactRef& contact) {
        return contact->touch == touch && contact->delivery == Delivery::Delivered;
    });
}

void TouchDispatcher::requestState(const Ref<UIGestureRecognizer>& recognizer,
                                   UIGestureRecognizerState state) {
    perform([&] { gestures_.request(recognizer, state); });
}

void TouchDispatcher::stopRecognizer(const Ref<UIGestureRecognizer>& recognizer) {
    perform([&] { gestures_.stop(recognizer); });
}

}  // namespace zn
