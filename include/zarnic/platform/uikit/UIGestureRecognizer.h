#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "zarnic/platform/foundation/Action.h"
#include "zarnic/platform/uikit/UIEvent.h"
#include "zarnic/platform/uikit/UIResponder.h"

namespace zn {

class UIGestureRecognizer;
class UIView;

enum class UIGestureRecognizerState {
    Possible,
    Began,
    Changed,
    Ended,
    Cancelled,
    Failed,
    Recognized = Ended,
};

/// Held weakly by the recogniser.
class ZN_EXPORT UIGestureRecognizerDelegate {
public:
    virtual ~UIGestureRecognizerDelegate() = default;
    virtual bool gestureRecognizerShouldBegin(const Ref<UIGestureRecognizer>&) { return true; }
    virtual bool gestureRecognizerShouldReceiveTouch(const Ref<UIGestureRecognizer>&,
                                                     const Ref<UITouch>&) {
        return true;
    }
    virtual bool gestureRecognizerShouldRecognizeSimultaneouslyWithGestureRecognizer(
        const Ref<UIGestureRecognizer>&, const Ref<UIGestureRecognizer>&) {
        return false;
    }
};

/// Watches the touches of a view and those below it, and calls its actions when it recognises
/// what it is about. Of the recognisers that share a touch one wins, and the others fail, unless a
/// delegate lets two of them run together. Disabling it ends a running gesture. Main thread only.
class ZN_EXPORT UIGestureRecognizer : public NSObject {
    ZN_OBJECT(UIGestureRecognizer, NSObject)
public:
    UIGestureRecognizer();
    explicit UIGestureRecognizer(const Action& action);
    ~UIGestureRecognizer() override;

    /// Adding the same action twice counts once.
    void addTarget(const Action& action);
    void removeTarget(const Action& action);
    UIGestureRecognizerState state() const { return state_; }
    bool enabled() const { return enabled_; }
    /// Turned off, a running gesture is cancelled at once, and no touch arrives any more.
    void setEnabled(bool enabled);
    Ref<UIView> view() const { return view_.lock(); }
    Ref<UIGestureRecognizerDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const Ref<UIGestureRecognizerDelegate>& delegate) { delegate_ = delegate; }
    /// Touches of a recognised gesture are cancelled in their views; default yes.
    bool cancelsTouchesInView() const { return cancelsTouchesInView_; }
    void setCancelsTouchesInView(bool cancels) { cancelsTouchesInView_ = cancels; }
    /// Views hear of a touch only after this recogniser has failed; default no.
    bool delaysTouchesBegan() const { return delaysTouchesBegan_; }
    void setDelaysTouchesBegan(bool delays) { delaysTouchesBegan_ = delays; }
    /// Views hear of a touch's end only after this recogniser has failed; default yes.
    bool delaysTouchesEnded() const { return delaysTouchesEnded_; }
    void setDelaysTouchesEnded(bool delays) { delaysTouchesEnded_ = delays; }
    /// This one recognises only after `other`, when that watches the same touches, has failed.
    void requireGestureRecognizerToFail(const Ref<UIGestureRecognizer>& other);
    /// The middle of its touches, or where the last one left, in the view's coordinates; a null
    /// view means the window's.
    virtual Point locationInView(const Ref<UIView>& view) const;
    /// Fingers that are down now.
    std::size_t numberOfTouches() const { return touches_.size(); }

    virtual void touchesBegan(const TouchSet&, const Ref<UIEvent>&) {}
    virtual void touchesMoved(const TouchSet&, const Ref<UIEvent>&) {}
    virtual void touchesEnded(const TouchSet&, const Ref<UIEvent>&) {}
    virtual void touchesCancelled(const TouchSet&, const Ref<UIEvent>&) {}
    /// Back to possible, for the next gesture.
    virtual void reset() {}
    /// Whether this one fails when `other`, which shares a touch with it, is recognised first.
    virtual bool canBePreventedByGestureRecognizer(const Ref<UIGestureRecognizer>&) const {
        return true;
    }

    /// Whether this one recognises only after `other`, which shares a touch with it, has failed;
    /// beside what `requireGestureRecognizerToFail` says.
    virtual bool shouldRequireFailureOfGestureRecognizer(const Ref<UIGestureRecognizer>&) const {
        return false;
    }

protected:
    /// Subclasses move through the states: possible to ended for a single event; possible, began,
    /// changed and ended for one that lasts; failed from possible. Leaving possible asks the
    /// delegate and the other recognisers, and may thus happen later, or end in failed.
    void setState(UIGestureRecognizerState state);
    /// The fingers that are down now.
    const TouchSet& touches() const { return touches_; }

private:
    friend class UIView;
    friend class TouchDispatcher;
    friend class GestureArbiter;
    std::vector<Action> actions_;
    std::vector<WeakRef<UIGestureRecognizer>> requiredToFail_;
    TouchSet touches_;
    /// Every touch since it was reset, those that have left included.
    TouchSet sequence_;
    /// Where it goes as soon as the recognisers that must fail first have failed.
    std::optional<UIGestureRecognizerState> waitingFor_;
    WeakRef<UIView> view_;
    WeakRef<UIGestureRecognizerDelegate> delegate_;
    UIGestureRecognizerState state_ = UIGestureRecognizerState::Possible;
    bool enabled_ = true;
    bool cancelsTouchesInView_ = true;
    bool delaysTouchesBegan_ = false;
    bool delaysTouchesEnded_ = true;
};

}  // namespace zn
