#include "platform/uikit/view/ViewAnimation.h"
#include "zarnic/platform/foundation/Dispatch.h"

namespace zn {

namespace {

constexpr unsigned CurveShift = 16;
constexpr unsigned CurveMask = 7u << CurveShift;

struct AnimationState {
    std::vector<AnimationContext> contexts;
    bool enabled = true;
};

AnimationState& animationState() {
    static auto& theState = *new AnimationState;
    return theState;
}

/// Opens a block for a scope; one inside another takes over what it does not override.
class AnimationScope {
public:
    explicit AnimationScope(AnimationContext context) {
        auto& contexts = animationState().contexts;
        if (!contexts.empty())
            inherit(context, contexts.back());
        contexts.push_back(std::move(context));
    }
    ~AnimationScope() { animationState().contexts.pop_back(); }
    AnimationScope(const AnimationScope&) = delete;
    AnimationScope& operator=(const AnimationScope&) = delete;

private:
    static void inherit(AnimationContext& context, const AnimationContext& outer) {
        if ((context.options & UIViewAnimationOptions::OverrideInheritedDuration) == 0)
            context.duration = outer.duration;
        if ((context.options & UIViewAnimationOptions::OverrideInheritedCurve) == 0)
            context.options = (context.options & ~CurveMask) | (outer.options & CurveMask);
    }
};

void layOutResizedViews() {
    // Laying out may resize more.
    while (auto* context = currentAnimationContext()) {
        const auto resized = std::exchange(context->resized, {});
        if (resized.empty())
            return;
        for (const auto& each : resized)
            if (const auto layer = each.lock())
                layer->layoutIfNeeded();
    }
}

CAMediaTimingFunction paceOf(unsigned options) {
    switch (options & CurveMask) {
        case UIViewAnimationOptions::CurveEaseIn:
            return CAMediaTimingFunction::easeIn();
        case UIViewAnimationOptions::CurveEaseOut:
            return CAMediaTimingFunction::easeOut();
        case UIViewAnimationOptions::CurveLinear:
            return CAMediaTimingFunction::linear();
        default:
            return CAMediaTimingFunction::easeInEaseOut();
    }
}

Ref<CAAnimation> animationFor(const AnimationContext& context, std::string_view property) {
    // Absent ends: from what is on the screen to the model value.
    const auto animation = make<CABasicAnimation>(std::string(property));
    animation->duration = context.duration;
    animation->delay = context.delay;
    animation->timingFunction = paceOf(context.options);
    // Until the delay is over it shows where it comes from, not where it is going.
    animation->fillMode = CAFillMode::Backwards;
    animation->autoreverses = (context.options & UIViewAnimationOptions::Autoreverse) != 0;
    if ((context.options & UIViewAnimationOptions::Repeat) != 0)
        animation->repeatCount = CAAnimation::RepeatsForever;
    return animation;
}

}  // namespace

AnimationGroup::AnimationGroup(UIView::Completion completion)
    : completion_(std::move(completion)) {}

void AnimationGroup::ended(bool finished) {
    --running_;
    allFinished_ = allFinished_ && finished;
    if (running_ == 0 && !open_)
        complete();
}

void AnimationGroup::close() {
    open_ = false;
    if (running_ == 0 && completion_)
        dispatchMain([completion = std::exchange(completion_, {}), finished = allFinished_] {
            completion(finished);
        });
}

void AnimationGroup::complete() {
    if (const auto completion = std::exchange(completion_, {}))
        completion(allFinished_);
}

AnimationContext* currentAnimationContext() {
    auto& state = animationState();
    return state.enabled && !state.contexts.empty() ? &state.contexts.back() : nullptr;
}

void UIView::animateWithDuration(double duration, const Block& animations, Completion completion) {
    animateWithDuration(duration, 0, UIViewAnimationOptions::None, animations,
                        std::move(completion));
}

void UIView::animateWithDuration(double duration, double delay, unsigned options,
                                 const Block& animations, Completion completion) {
    const auto group = std::make_shared<AnimationGroup>(std::move(completion));
    {
        const AnimationScope scope({duration, delay, options, group, {}});
        if (animations)
            animations();
        layOutResizedViews();
    }
    group->close();
}

void UIView::performWithoutAnimation(const Block& actions) {
    const AnimationsOff off;
    if (actions)
        actions();
}

bool UIView::areAnimationsEnabled() {
    return animationState().enabled;
}

void UIView::setAnimationsEnabled(bool enabled) {
    animationState().enabled = enabled;
}

double UIView::inheritedAnimationDuration() {
    const auto* context = currentAnimationContext();
    return context ? context->duration : 0;
}

Ref<CAAnimation> UIView::actionForLayer(CALayer& layer, std::string_view property) {
    auto* context = currentAnimationContext();
    if (!context || !(context->duration > 0))
        return nullptr;
    if ((context->options & UIViewAnimationOptions::LayoutSubviews) != 0 && property == "bounds")
        context->resized.push_back(ref(&layer));
    const auto animation = animationFor(*context, property);
    const bool keepsTouchesAway =
        (context->options & UIViewAnimationOptions::AllowUserInteraction) == 0;
    untouchable_ += keepsTouchesAway;
    context->group->began();
    animation->completion = [group = context->group, weak = WeakRef<UIView>(ref(this)),
                             keepsTouchesAway](bool finished) {
        if (const auto view = weak.lock())
            view->untouchable_ -= keepsTouchesAway;
        group->ended(finished);
    };
    return animation;
}

}  // namespace zn
