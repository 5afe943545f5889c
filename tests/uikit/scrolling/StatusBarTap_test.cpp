#include "tests/uikit/scrolling/ScrollFixture.h"

namespace zn::test {
namespace {

class StatusBarTapTest : public ScrollTest {};

TEST_F(StatusBarTapTest, ScrollsToTheTopWhatAloneWantsIt) {
    view->setContentInset({20, 0, 0, 0});
    const auto tap = [this] {
        view->setContentOffset({0, 900}, false);
        listener->take();
        play("d180,10 +0.05 u +1");
        return listener->take();
    };
    EXPECT_EQ(tap(), "scroll top");
    EXPECT_EQ(y(), -20);
    listener->mayGoToTop = false;
    EXPECT_EQ(tap(), "");
    listener->mayGoToTop = true;
    const auto second = make<UIScrollView>(Rect(0, 0, 100, 100));
    view->addSubview(second);
    EXPECT_EQ(tap(), "scroll top") << "the other one is out of sight";
    second->setFrame({0, 950, 100, 100});
    EXPECT_EQ(tap(), "") << "two want to";
    second->setScrollsToTop(false);
    EXPECT_EQ(tap(), "scroll top");
    view->setScrollsToTop(false);
    EXPECT_EQ(tap(), "");
}

}  // namespace
}  // namespace zn::test
