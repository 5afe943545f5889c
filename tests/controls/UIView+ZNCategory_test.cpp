#include "zarnic/UIView+ZNCategory.h"

#include <gmock/gmock.h>

#include "zarnic/platform/uikit/UIScrollView.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {
namespace {

TEST(UIViewZNGeometryTest, GettersReadTheFrame) {
    const auto view = make<UIView>(Rect(5, 6, 30, 40));
    EXPECT_EQ(zn_GetX(view), 5);
    EXPECT_EQ(zn_GetY(view), 6);
    EXPECT_EQ(zn_GetWidth(view), 30);
    EXPECT_EQ(zn_GetHeight(view), 40);
    EXPECT_EQ(zn_GetLeft(view), 5);
    EXPECT_EQ(zn_GetTop(view), 6);
    EXPECT_EQ(zn_GetRight(view), 35);
    EXPECT_EQ(zn_GetBottom(view), 46);
}

TEST(UIViewZNGeometryTest, NegativeFramesReadAndStayStandardised) {
    /// Gives its frame as somebody set it.
    class Raw final : public UIView {
        ZN_OBJECT(Raw, UIView)
    public:
        Rect frame() const override { return raw; }
        void setFrame(const Rect& frame) override { raw = frame; }
        Rect raw{50, 40, -20, -10};
    };
    const auto view = make<Raw>();
    EXPECT_EQ(zn_GetX(view), 30);
    EXPECT_EQ(zn_GetY(view), 30);
    EXPECT_EQ(zn_GetWidth(view), 20);
    EXPECT_EQ(zn_GetBottom(view), 40);
    zn_SetX(view, 1);
    EXPECT_EQ(view->raw, Rect(1, 30, 20, 10));
}

TEST(UIViewZNGeometryTest, SettersChangeOnePart) {
    const auto frameAfter = [](void (*set)(const Ref<UIView>&, double)) {
        const auto view = make<UIView>(Rect(5, 5, 10, 10));
        set(view, 77);
        return view->frame();
    };
    EXPECT_EQ(frameAfter(zn_SetX), Rect(77, 5, 10, 10));
    EXPECT_EQ(frameAfter(zn_SetY), Rect(5, 77, 10, 10));
    EXPECT_EQ(frameAfter(zn_SetWidth), Rect(5, 5, 77, 10));
    EXPECT_EQ(frameAfter(zn_SetHeight), Rect(5, 5, 10, 77));
}

TEST(UIViewZNGeometryTest, AbsentViewGivesNothing) {
    const Ref<UIView> none;
    EXPECT_EQ(zn_GetX(none), 0);
    EXPECT_EQ(zn_GetRight(none), 0);
    zn_SetWidth(none, 5);
    EXPECT_EQ(zn_FindViewController(none), nullptr);
    EXPECT_EQ(zn_FindWindow(none), nullptr);
    EXPECT_EQ(zn_GetRelativeFrame(none), Rect());
}

TEST(UIViewZNGeometryTest, ControllerIsTheFirstAfterTheViewOnTheChain) {
    const auto outer = make<UIViewController>(), inner = make<UIViewController>();
    const auto child = make<UIView>(), loose = make<UIView>();
    outer->view()->addSubview(inner->view());
    inner->view()->addSubview(child);
    EXPECT_EQ(zn_FindViewController(child), inner);
    EXPECT_EQ(zn_FindViewController(inner->view()), inner);
    inner->view()->removeFromSuperview();
    outer->view()->addSubview(child);
    EXPECT_EQ(zn_FindViewController(child), outer);
    EXPECT_EQ(zn_FindViewController(loose), nullptr);
}

TEST(UIViewZNGeometryTest, WindowComesThroughTheControllerOnly) {
    const auto window = make<UIWindow>(Rect(0, 0, 300, 300));
    const auto bare = make<UIView>();
    window->addSubview(bare);
    EXPECT_EQ(bare->window(), window);
    EXPECT_EQ(zn_FindWindow(bare), nullptr) << "in a window, but without a controller";
    const auto controller = make<UIViewController>();
    const auto child = make<UIView>();
    controller->view()->addSubview(child);
    EXPECT_EQ(zn_FindWindow(child), nullptr);
    window->addSubview(controller->view());
    EXPECT_EQ(zn_FindWindow(child), window);
}

TEST(UIViewZNGeometryTest, RelativeFrameWithoutAControllerAddsOriginsLessOffsets) {
    const auto root = make<UIView>(Rect(0, 0, 320, 480));
    const auto scroll = make<UIScrollView>(Rect(0, 64, 320, 400));
    const auto view = make<UIView>(Rect(10, 20, 30, 40));
    root->addSubview(scroll);
    scroll->addSubview(view);
    scroll->setContentOffset({0, 100});
    EXPECT_EQ(zn_GetRelativeFrame(view), Rect(10, -16, 30, 40));
    EXPECT_EQ(zn_GetRelativeFrame(scroll), Rect(0, 64, 320, 400)) << "its own offset is not used";
    root->setFrame({3, 4, 320, 480});
    EXPECT_EQ(zn_GetRelativeFrame(view).origin, (Point{13, -12}));
    EXPECT_EQ(zn_GetRelativeFrame(make<UIView>(Rect(1, 2, 3, 4))), Rect(1, 2, 3, 4));
}

TEST(UIViewZNGeometryTest, RelativeFrameStopsAtTheWindow) {
    const auto window = make<UIWindow>(Rect(100, 100, 300, 300));
    const auto bare = make<UIView>(Rect(7, 8, 10, 10));
    window->addSubview(bare);
    EXPECT_EQ(zn_GetRelativeFrame(bare), Rect(7, 8, 10, 10));
    const auto controller = make<UIViewController>();
    controller->view()->setFrame({10, 10, 100, 100});
    window->addSubview(controller->view());
    const auto child = make<UIView>(Rect(1, 2, 4, 6));
    controller->view()->addSubview(child);
    EXPECT_EQ(zn_GetRelativeFrame(child), Rect(11, 12, 4, 6));
    controller->view()->setTransform(AffineTransform::scale(0.5, 0.5));
    EXPECT_EQ(zn_GetRelativeFrame(child).size, (Size{2, 3})) << "the window converts it";
}

}  // namespace
}  // namespace zn
