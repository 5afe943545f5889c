#include "zarnic/platform/uikit/UIControl.h"

#include <algorithm>

#include "zarnic/platform/uikit/UIEvent.h"

namespace zn {
namespace {

/// Points beyond the bounds within which a finger still counts as inside.
constexpr double insideMargin = 70;

}  // namespace

UIControl::UIControl() = default;

UIControl::UIControl(const Rect& frame) : UIView(frame) {}

UIControl::~UIControl() = default;

void UIControl::addTarget(const Action& action, unsigned events) {
    if (!action)
        return;
    const auto same = std::find_if(entries_.begin(), entries_.end(),
                                   [&](const Entry& entry) { return entry.action == action; });
    if (same == entries_.end())
        entries_.push_back({action, events});
    else
        same->events |= events;
}

void UIControl::removeTarget(const Action& action, unsigned events) {
    for (Entry& entry : entries_)
        if (!action || entry.action == action)
            entry.events &= ~events;
    std::erase_if(entries_, [](const Entry& entry) { return entry.events == 0; });
}

std::vector<Action> UIControl::actionsForControlEvents(unsigned events) const {
    std::vector<Action> actions;
    for (const Entry& entry : entries_)
        if ((entry.events & events) != 0)
            actions.push_back(entry.action);
    return actions;
}

void UIControl::sendActionsForControlEvents(unsigned events) {
    sendActions(events, nullptr);
}

bool UIControl::sends(const Action& action, unsigned event) const {
    return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return (entry.events & event) != 0 && entry.action == action;
    });
}

void UIControl::sendActions(unsigned events, const Ref<UIEvent>& detail) {
    const Ref<UIControl> self = ref(this);
    for (unsigned event = 1; event != 0; event <<= 1) {
        if ((events & event) == 0)
            continue;
        for (const Action& action : actionsForControlEvents(event))
            // One that an earlier action took away is not sent any more.
            if (sends(action, event))
                action.send(self, detail);
    }
}

void UIControl::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    const Ref<UIControl> self = ref(this);
    enabled_ = enabled;
    if (!enabled && tracking())
        cancelTracking(nullptr);
    stateChanged();
}

void UIControl::setSelected(bool selected) {
    if (selected == selected_)
        return;
    selected_ = selected;
    stateChanged();
}

void UIControl::setHighlighted(bool highlighted) {
    if (highlighted == highlighted_)
        return;
    highlighted_ = highlighted;
    stateChanged();
}

unsigned UIControl::state() const {
    return (highlighted_ ? UIControlState::Highlighted : 0) |
           (enabled_ ? 0 : UIControlState::Disabled) | (selected_ ? UIControlState::Selected : 0);
}

bool UIControl::isInside(const Ref<UITouch>& touch) const {
    const Ref<UIView> self = ref(const_cast<UIControl*>(this));
    return bounds().insetBy(-insideMargin, -insideMargin).contains(touch->locationInView(self));
}

void UIControl::touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) {
    if (!enabled_) {
        UIView::touchesBegan(touches, event);
        return;
    }
    if (touch_ || touches.empty())
        return;
    const Ref<UIControl> self = ref(this);
    touch_ = touches.front();
    touchInside_ = true;
    setHighlighted(true);
    const Ref<UITouch> touch = touch_;
    if (!beginTrackingWithTouch(touch, event)) {
        stopTracking();
        return;
    }
    sendActions(touch->tapCount() > 1
                    ? UIControlEvents::TouchDown | UIControlEvents::TouchDownRepeat
                    : UIControlEvents::TouchDown,
                event);
}

void UIControl::touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) {
    const Ref<UIControl> self = ref(this);
    if (!touch_)
        UIView::touchesMoved(touches, event);
    else if (std::find(touches.begin(), touches.end(), touch_) != touches.end())
        trackMove(touch_, event);
}

void UIControl::trackMove(const Ref<UITouch>& moved, const Ref<UIEvent>& event) {
    // A copy: what comes in is the member, which the actions may reset.
    const Ref<UITouch> touch = moved;  // NOLINT(performance-unnecessary-copy-initialization)
    const bool wasInside = touchInside_;
    touchInside_ = isInside(touch);
    const bool inside = touchInside_;
    setHighlighted(inside);
    if (!continueTrackingWithTouch(touch, event)) {
        stopTracking();
        endTrackingWithTouch(nullptr, event);
        return;
    }
    if (inside != wasInside)
        sendActions(inside ? UIControlEvents::TouchDragEnter : UIControlEvents::TouchDragExit,
                    event);
    sendActions(inside ? UIControlEvents::TouchDragInside : UIControlEvents::TouchDragOutside,
                event);
}

void UIControl::touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) {
    const Ref<UIControl> self = ref(this);
    if (!touch_) {
        UIView::touchesEnded(touches, event);
        return;
    }
    if (std::find(touches.begin(), touches.end(), touch_) == touches.end())
        return;
    const Ref<UITouch> touch = touch_;
    const bool inside = isInside(touch);
    stopTracking();
    endTrackingWithTouch(touch, event);
    sendActions(inside ? upInsideEvents() : UIControlEvents::TouchUpOutside, event);
}

void UIControl::touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) {
    const Ref<UIControl> self = ref(this);
    if (!touch_)
        UIView::touchesCancelled(touches, event);
    else if (std::find(touches.begin(), touches.end(), touch_) != touches.end())
        cancelTracking(event);
}

void UIControl::cancelTracking(const Ref<UIEvent>& event) {
    stopTracking();
    cancelTrackingWithEvent(event);
    sendActions(UIControlEvents::TouchCancel, event);
}

void UIControl::stopTracking() {
    touch_ = nullptr;
    touchInside_ = false;
    setHighlighted(false);
}

}  // namespace zn
