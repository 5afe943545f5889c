#pragma once

#include <gmock/gmock.h>

#include "tests/uikit/touch/TouchFixture.h"
#include "zarnic/platform/uikit/UIScrollView.h"

namespace zn::test {

/// Writes down what a scroll view tells: "begin", "drag-end:fly" or "drag-end:stay", "fly",
/// "rest", ...; of a row of movements one "scroll".
class ScrollListener : public UIScrollViewDelegate {
public:
    std::function<void(UIScrollView&)> whenScrolled;
    std::function<void(UIScrollView&, Point velocity, Point& target)> whenReleased;
    std::function<void(UIScrollView&)> whenDragged;
    std::function<void(UIScrollView&)> whenLeft;
    bool mayGoToTop = true;
    int scrolls = 0;

    std::string take() {
        last_.clear();
        return journal_.take();
    }

    void scrollViewDidScroll(const Ref<UIScrollView>& view) override {
        ++scrolls;
        if (last_ != "scroll")
            write("scroll");
        if (whenScrolled)
            whenScrolled(*view);
    }
    void scrollViewWillBeginDragging(const Ref<UIScrollView>& view) override {
        write("begin");
        if (whenDragged)
            whenDragged(*view);
    }
    void scrollViewWillEndDraggingWithVelocity(const Ref<UIScrollView>& view, Point velocity,
                                               Point& target) override {
        write("release");
        if (whenReleased)
            whenReleased(*view, velocity, target);
    }
    void scrollViewDidEndDraggingWillDecelerate(const Ref<UIScrollView>& view,
                                                bool decelerate) override {
        write(decelerate ? "left:fly" : "left:stay");
        if (whenLeft)
            whenLeft(*view);
    }
    void scrollViewWillBeginDecelerating(const Ref<UIScrollView>&) override { write("fly"); }
    void scrollViewDidEndDecelerating(const Ref<UIScrollView>&) override { write("rest"); }
    void scrollViewDidEndScrollingAnimation(const Ref<UIScrollView>&) override {
        write("animated");
    }
    bool scrollViewShouldScrollToTop(const Ref<UIScrollView>&) override { return mayGoToTop; }
    void scrollViewDidScrollToTop(const Ref<UIScrollView>&) override { write("top"); }

private:
    void write(const std::string& word) {
        last_ = word;
        journal_.add(word);
    }

    Journal journal_;
    std::string last_;
};

/// A window with a scroll view over the whole of it, 375 x 667 points.
class ScrollTest : public TouchTest {
protected:
    void SetUp() override {
        TouchTest::SetUp();
        view = make<UIScrollView>(window->bounds());
        view->setContentSize({375, 5000});
        view->setDelegate(listener);
        window->addSubview(view);
    }

    /// Drags at a constant speed, 60 moves a second, and lets go.
    void flick(Point from, Point to, double seconds) {
        fling(from, to, seconds);
        application->touchUp(1, to);
    }

    /// The same without letting go.
    void fling(Point from, Point to, double seconds) {
        application->touchDown(1, from);
        const int moves = std::max(1, static_cast<int>(std::lround(seconds * 60)));
        for (int move = 1; move <= moves; ++move) {
            clock.advance(seconds / moves);
            const double part = static_cast<double>(move) / moves;
            application->touchMove(
                1, {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
        }
    }

    double x() const { return view->contentOffset().x; }
    double y() const { return view->contentOffset().y; }

    std::shared_ptr<ScrollListener> listener = std::make_shared<ScrollListener>();
    Ref<UIScrollView> view;
};

}  // namespace zn::test
