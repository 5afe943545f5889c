#pragma once

#include <functional>
#include <vector>

#include "zarnic/platform/uikit/UIGestureRecognizer.h"

namespace zn {

/// Decides which of the recognisers that watch the same touches may leave the possible state: the
/// first one that asks wins, those that must fail first are waited for, and the others fail unless
/// a delegate lets both run.
class GestureArbiter {
public:
    using State = UIGestureRecognizerState;
    using TouchCanceller = std::function<void(const TouchSet&)>;

    /// `cancelInViews` takes touches away from the views that have them.
    explicit GestureArbiter(TouchCanceller cancelInViews);

    /// A touch has come down that the recogniser is to see.
    void addTouch(const Ref<UIGestureRecognizer>& recognizer, const Ref<UITouch>& touch);
    /// A touch has left.
    void removeTouch(const Ref<UITouch>& touch);
    /// Whether a recogniser takes touches at the moment.
    static bool listens(const UIGestureRecognizer& recognizer);
    /// The same, of a touch that was added and has not left.
    static bool hears(const UIGestureRecognizer& recognizer, const Ref<UITouch>& touch);
    /// Whether a running gesture keeps the touch from the views.
    bool claims(const Ref<UITouch>& touch) const;
    /// Recognisers that watch the touch and are still possible keep its beginning, or its end,
    /// from the views.
    bool delaysBegan(const Ref<UITouch>& touch) const;
    bool delaysEnded(const Ref<UITouch>& touch) const;

    void request(const Ref<UIGestureRecognizer>& recognizer, State wanted);
    /// Ends what the recogniser is doing: it was turned off, or its view has gone.
    void stop(const Ref<UIGestureRecognizer>& recognizer);
    /// Stops the recognisers whose views are on no visible window any more.
    void stopDetached();
    /// Makes those that have come to an end possible again once no finger of theirs is down.
    void resetFinished();

private:
    using Recognizers = std::vector<Ref<UIGestureRecognizer>>;
    enum class Verdict { Go, Wait, Fail };

    void begin(const Ref<UIGestureRecognizer>& recognizer, State wanted);
    void recognize(const Ref<UIGestureRecognizer>& recognizer, State state);
    void fail(const Ref<UIGestureRecognizer>& recognizer);
    void enter(const Ref<UIGestureRecognizer>& recognizer, State state);
    void retryWaiting();
    Verdict requirements(const UIGestureRecognizer& recognizer) const;
    bool excluded(const Ref<UIGestureRecognizer>& recognizer) const;
    bool isActive(const Ref<UIGestureRecognizer>& recognizer) const;
    bool anyPossible(const Ref<UITouch>& touch, bool UIGestureRecognizer::*delays) const;

    TouchCanceller cancelInViews_;
    /// Those that have seen a touch since they were reset.
    Recognizers active_;
};

}  // namespace zn
