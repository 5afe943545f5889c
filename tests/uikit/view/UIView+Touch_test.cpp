#include <gmock/gmock.h>

#include "zarnic/platform/uikit/UIGestureRecognizer.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Stack {
    Ref<UIView> root = make<UIView>(Rect(50, 50, 100, 100));
    Ref<UIView> lower = make<UIView>(Rect(10, 10, 50, 50));
    Ref<UIView> upper = make<UIView>(Rect(40, 40, 50, 50));
    Stack() {
        root->addSubview(lower);
        root->addSubview(upper);
    }
    Ref<UIView> at(Point point) const { return root->hitTest(point, nullptr); }
};

TEST(UIViewTouchTest, GoesToTheTopmostViewUnderTheFinger) {
    const Stack stack;
    EXPECT_EQ(stack.at({50, 50}), stack.upper);
    EXPECT_EQ(stack.at({20, 20}), stack.lower);
    EXPECT_EQ(stack.at({95, 5}), stack.root);
    EXPECT_EQ(stack.at({100, 50}), nullptr) << "the far edges are outside";
    EXPECT_EQ(stack.at({0, 0}), stack.root) << "the near edges are inside";
}

TEST(UIViewTouchTest, PartsOutsideTheSuperviewGetNothing) {
    const Stack stack;
    stack.upper->setFrame({90, 90, 50, 50});
    EXPECT_EQ(stack.at({95, 95}), stack.upper);
    EXPECT_EQ(stack.at({110, 110}), nullptr);
}

TEST(UIViewTouchTest, PassesOverViewsThatAreNotThereForTheFinger) {
    const auto expectPassedOver = [](const char* what, const auto& change) {
        SCOPED_TRACE(what);
        const Stack stack;
        stack.upper->addSubview(make<UIView>(Rect(0, 0, 50, 50)));
        change(*stack.upper);
        EXPECT_EQ(stack.at({50, 50}), stack.lower);
    };
    expectPassedOver("hidden", [](UIView& view) { view.setHidden(true); });
    expectPassedOver("faint", [](UIView& view) { view.setAlpha(0.009); });
    expectPassedOver("no interaction", [](UIView& view) { view.setUserInteractionEnabled(false); });
    const Stack stack;
    stack.upper->setAlpha(0.01);
    EXPECT_EQ(stack.at({50, 50}), stack.upper);
}

TEST(UIViewTouchTest, FollowsOffsetsAndTransforms) {
    const Stack stack;
    stack.root->setBounds({0, 1000, 100, 100});
    stack.upper->setFrame({0, 1000, 40, 40});
    stack.upper->setTransform(AffineTransform::scale(0.5, 0.5));
    EXPECT_EQ(stack.at({20, 1020}), stack.upper);
    EXPECT_EQ(stack.at({5, 1005}), stack.root);
}

TEST(UIViewTouchTest, RecogniserHasOneView) {
    const Stack stack;
    const auto recognizer = make<UIGestureRecognizer>();
    stack.lower->addGestureRecognizer(recognizer);
    stack.upper->addGestureRecognizer(recognizer);
    stack.upper->addGestureRecognizer(recognizer);
    EXPECT_THAT(stack.lower->gestureRecognizers(), IsEmpty());
    EXPECT_THAT(stack.upper->gestureRecognizers(), ElementsAre(recognizer));
    EXPECT_EQ(recognizer->view(), stack.upper);
    stack.lower->removeGestureRecognizer(recognizer);
    EXPECT_EQ(recognizer->view(), stack.upper);
    stack.upper->removeGestureRecognizer(recognizer);
    EXPECT_EQ(recognizer->view(), nullptr);
}

}  // namespace
}  // namespace zn
