#include "platform/uikit/scrolling/ScrollViewState.h"
#include "platform/uikit/view/ScreenSpace.h"

namespace zn {
namespace {

/// Seconds that the indicators stay after the content has come to rest.
constexpr double afterglow = 0.3;

}  // namespace

ScrollCourse UIScrollView::State::courseFrom(double place, double velocity,
                                             const ScrollRange& range) const {
    if (!(range.high > range.low) && !range.bounces)
        return ScrollCourse(place);
    if (view.paging_)
        return ScrollCourse::turning(place, velocity, ScrollCourse::pageFor(place, velocity, range),
                                     range);
    return ScrollCourse::coasting(place, velocity, range, view.decelerationRate_);
}

ScrollCourse UIScrollView::State::courseTo(double target, double place, double velocity,
                                           const ScrollRange& range) const {
    if (view.paging_)
        return ScrollCourse::turning(place, velocity, target, range);
    return ScrollCourse::settling(place, velocity, target, range, view.decelerationRate_);
}

Deceleration::Plan UIScrollView::State::planFrom(Point offset, Point velocity) const {
    Deceleration::Plan plan;
    plan.x = courseFrom(offset.x, velocity.x, horizontalRange());
    plan.y = courseFrom(offset.y, velocity.y, verticalRange());
    const auto end = [](double place, double rounded, const ScrollRange& range) {
        return place == range.low || place == range.high ? place : rounded;
    };
    const Point pixel = rounded({plan.x.end(), plan.y.end()});
    plan.end = {end(plan.x.end(), pixel.x, horizontalRange()),
                end(plan.y.end(), pixel.y, verticalRange())};
    if (view.paging_)
        plan.end = {plan.x.end(), plan.y.end()};
    return plan;
}

/// The same with another end, which is brought into the content.
void UIScrollView::State::redirect(Deceleration::Plan& plan, Point target, Point offset,
                                   Point velocity) const {
    const ScrollRange horizontal = horizontalRange(), vertical = verticalRange();
    const Point end{horizontal.nearest(target.x), vertical.nearest(target.y)};
    if (target.x != plan.end.x)
        plan.x = courseTo(end.x, offset.x, velocity.x, horizontal);
    if (target.y != plan.end.y)
        plan.y = courseTo(end.y, offset.y, velocity.y, vertical);
    plan.end = end;
    plan.chosen = true;
}

void UIScrollView::State::replan(Point moved) {
    const Deceleration& former = *deceleration();
    const Point velocity = former.velocityAt(former.elapsed());
    const Point offset = view.contentOffset();
    Deceleration::Plan plan;
    plan.chosen = former.chosen();
    if (view.paging_ || plan.chosen) {
        const ScrollRange horizontal = horizontalRange(), vertical = verticalRange();
        const Point target = former.end() + moved;
        plan.end = view.paging_ ? Point{ScrollCourse::pageFor(target.x, 0, horizontal),
                                        ScrollCourse::pageFor(target.y, 0, vertical)}
                                : Point{horizontal.nearest(target.x), vertical.nearest(target.y)};
        plan.x = courseTo(plan.end.x, offset.x, velocity.x, horizontal);
        plan.y = courseTo(plan.end.y, offset.y, velocity.y, vertical);
    } else {
        plan = planFrom(offset, velocity);
    }
    begin(std::make_unique<Deceleration>(plan));
}

void UIScrollView::State::decelerate(const Deceleration::Plan& plan) {
    begin(std::make_unique<Deceleration>(plan));
    announceDeceleration();
}

void UIScrollView::State::announceDeceleration() {
    decelerating = true;
    if (!tracking)
        tracking.emplace();
    if (const auto delegate = view.delegate())
        delegate->scrollViewWillBeginDecelerating(self());
}

void UIScrollView::State::comeToRest() {
    tracking.reset();
    hideIndicatorsAfter(afterglow);
}

}  // namespace zn
