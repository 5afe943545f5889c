#include "zarnic/platform/UIScrollView.h"

#include <algorithm>

#include "zarnic/platform/DisplayTick.h"

namespace zn {

namespace {

constexpr double AnimationDuration = 0.3;

struct Range {
    double start;
    double end;
};

/// The offset nearest to the present one at which the range shows, inside what can be scrolled to.
double offsetShowing(Range range, double offset, double side, Range scrollable) {
    const double least = range.end - side, most = range.start;
    // A range that does not fit shows its beginning, or stays when only its inside is seen.
    const double nearest =
        least <= most ? std::clamp(offset, least, most) : std::clamp(offset, most, least);
    return std::max(scrollable.start, std::min(nearest, scrollable.end - side));
}

}  // namespace

/// Moves the offset frame by frame.
class UIScrollView::Animation {
public:
    Animation(UIScrollView& view, Point target)
        : view_(view),
          from_(view.contentOffset()),
          target_(target),
          begin_(CACurrentMediaTime()),
          tick_([this] { step(); }) {
        tick_.start();
    }

private:
    void step() {
        const Ref<UIScrollView> view = ref(&view_);
        const double elapsed = CACurrentMediaTime() - begin_;
        if (elapsed >= AnimationDuration) {
            finish(view);
            return;
        }
        const double done = CAMediaTimingFunction::easeInEaseOut().at(elapsed / AnimationDuration);
        view->moveTo(
            {from_.x + (target_.x - from_.x) * done, from_.y + (target_.y - from_.y) * done});
    }

    void finish(const Ref<UIScrollView>& view) {
        const Point target = target_;
        // The delegate may begin another one: this one is over before it hears of the end.
        const std::unique_ptr<Animation> self = std::move(view->animation_);
        tick_.stop();
        view->moveTo(target);
        if (const auto delegate = view->delegate())
            delegate->scrollViewDidEndScrollingAnimation(view);
    }

    UIScrollView& view_;
    Point from_;
    Point target_;
    double begin_;
    DisplayTick tick_;
};

UIScrollView::UIScrollView() = default;

UIScrollView::UIScrollView(const Rect& frame) : UIView(frame) {}

UIScrollView::~UIScrollView() = default;

void UIScrollView::init() {
    UIView::init();
    setClipsToBounds(true);
}

void UIScrollView::setContentOffset(Point offset) {
    animation_.reset();
    moveTo(offset);
}

void UIScrollView::setContentOffset(Point offset, bool animated) {
    if (animated && offset != contentOffset())
        animateTo(offset);
    else
        setContentOffset(offset);
}

void UIScrollView::animateTo(Point offset) {
    animation_ = std::make_unique<Animation>(*this, offset);
}

void UIScrollView::moveTo(Point offset) {
    setBounds({offset, bounds().size});
}

void UIScrollView::setBounds(const Rect& bounds) {
    const Point before = contentOffset();
    UIView::setBounds(bounds);
    const auto delegate = this->delegate();
    if (delegate && contentOffset() != before)
        delegate->scrollViewDidScroll(ref(this));
}

void UIScrollView::scrollRectToVisible(const Rect& rect, bool animated) {
    const Rect visible = bounds(), wanted = rect.standardized();
    const Point offset{
        offsetShowing({wanted.minX(), wanted.maxX()}, visible.minX(), visible.width(),
                      {-contentInset_.left, contentSize_.width + contentInset_.right}),
        offsetShowing({wanted.minY(), wanted.maxY()}, visible.minY(), visible.height(),
                      {-contentInset_.top, contentSize_.height + contentInset_.bottom})};
    if (offset != contentOffset())
        setContentOffset(offset, animated);
}

}  // namespace zn
