#pragma once

#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/uikit/UIGestureRecognizer.h"

namespace zn {

/// Keeps the fingers on a scroll view's content from the views inside until they have rested for
/// 150 ms or left: it recognises nothing, and the views wait for it to fail.
class ContentTouchDelay final : public UIGestureRecognizer {
    ZN_OBJECT(ContentTouchDelay, UIGestureRecognizer)
public:
    ContentTouchDelay();
    ~ContentTouchDelay() override;

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void reset() override;

private:
    bool delays(const TouchSet& touches) const;

    RunLoopToken deadline_;
};

}  // namespace zn
