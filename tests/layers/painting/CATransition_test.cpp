#include "tests/layers/Screen.h"

namespace zn {
namespace {

/// A red page on the screen; `turn` makes it green in the pass that adds the transition.
struct Page {
    Page() : page(screen.add({10, 10, 20, 20}, red)) { screen.show(); }
    ~Page() {
        page->removeAllAnimations();
        testClock().settle();
    }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    void turn(CATransitionType type, CATransitionSubtype subtype) {
        CATransaction::setDisableActions(true);
        page->setBackgroundColor(green);
        auto transition = make<CATransition>();
        transition->type = type;
        transition->subtype = subtype;
        transition->duration = 1;
        transition->completion = [this](bool finished) { ended = finished; };
        page->addAnimation(transition, {});
        screen.show();
    }

    Screen screen;
    Ref<CALayer> page;
    bool ended = false;
};

TEST(CATransitionTest, BeginsWithTheOldContentThoughAddedAfterTheChange) {
    Page page;
    page.turn(CATransitionType::Fade, {});
    EXPECT_EQ(page.screen.pixel(20, 20), "ffff0000");
    page.screen.advance(0.5);
    EXPECT_NEAR(page.screen.redAt(20, 20), 128, 1);
    EXPECT_NEAR(page.screen.greenAt(20, 20), 128, 1);
    EXPECT_EQ(page.screen.blueAt(20, 20), 0) << "nothing of what lies behind";
    EXPECT_EQ(page.screen.pixel(9, 20), "ffffffff");
    page.screen.advance(0.5);
    EXPECT_EQ(page.screen.pixel(20, 20), "ff00ff00");
    EXPECT_TRUE(page.ended);
    EXPECT_FALSE(page.screen.compositor.animating());
}

struct SlideCase {
    CATransitionType type;
    CATransitionSubtype subtype;
    /// After a quarter of the time, in the middles of the page's left, right, upper and lower edge.
    std::string left, right, top, bottom;
};

class SlideTest : public testing::TestWithParam<SlideCase> {};

// The names of the edges are those of a y-up space: from top, things move upward.
TEST_P(SlideTest, MovesAsItsNameSaysInAYUpSpace) {
    Page page;
    page.turn(GetParam().type, GetParam().subtype);
    page.screen.advance(0.25);
    EXPECT_EQ(page.screen.pixel(11, 20), GetParam().left);
    EXPECT_EQ(page.screen.pixel(28, 20), GetParam().right);
    EXPECT_EQ(page.screen.pixel(20, 11), GetParam().top);
    EXPECT_EQ(page.screen.pixel(20, 28), GetParam().bottom);
    EXPECT_EQ(page.screen.pixel(8, 20), "ffffffff") << "nothing leaves the page's box";
    EXPECT_EQ(page.screen.pixel(20, 31), "ffffffff");
}

const std::string Old = "ffff0000", New = "ff00ff00";

INSTANTIATE_TEST_SUITE_P(
    All, SlideTest,
    testing::Values(
        SlideCase{CATransitionType::MoveIn, CATransitionSubtype::FromTop, Old, Old, Old, New},
        SlideCase{CATransitionType::MoveIn, CATransitionSubtype::FromBottom, Old, Old, New, Old},
        SlideCase{CATransitionType::MoveIn, CATransitionSubtype::FromLeft, New, Old, Old, Old},
        SlideCase{CATransitionType::Push, CATransitionSubtype::FromRight, Old, New, Old, Old},
        SlideCase{CATransitionType::Reveal, CATransitionSubtype::FromBottom, Old, Old, New, Old},
        SlideCase{CATransitionType::Reveal, CATransitionSubtype::FromTop, Old, Old, Old, New},
        SlideCase{CATransitionType::Reveal, CATransitionSubtype::FromRight, Old, New, Old, Old}));

TEST(CATransitionTest, PushMovesBothAndTheOtherTypesOne) {
    for (auto type : {CATransitionType::Push, CATransitionType::MoveIn, CATransitionType::Reveal}) {
        Screen screen;
        auto page = screen.add({0, 0, 40, 40}, {});
        auto marked = boxLayer({10, 10, 10, 10}, red);
        page->addSublayer(marked);
        screen.show();
        CATransaction::setDisableActions(true);
        marked->setBackgroundColor(blue);
        auto transition = make<CATransition>();
        transition->type = type;
        transition->subtype = CATransitionSubtype::FromRight;
        transition->duration = 1;
        page->addAnimation(transition, {});
        screen.show();
        screen.advance(0.5);
        bool oldMoves = type != CATransitionType::MoveIn;
        bool newMoves = type != CATransitionType::Reveal;
        EXPECT_EQ(screen.pixel(15, 15), oldMoves ? (newMoves ? "ffffffff" : "ff0000ff") : Old);
        EXPECT_EQ(screen.pixel(35, 15), newMoves ? "ff0000ff" : "ffffffff");
    }
}

TEST(CATransitionTest, SublayersAddedInThePassBelongToTheNewContent) {
    Page page;
    page.page->addSublayer(boxLayer({0, 0, 20, 20}, blue));
    page.turn(CATransitionType::MoveIn, CATransitionSubtype::FromTop);
    EXPECT_EQ(page.screen.pixel(20, 20), Old);
    page.screen.advance(0.75);
    EXPECT_EQ(page.screen.pixel(20, 12), Old);
    EXPECT_EQ(page.screen.pixel(20, 20), "ff0000ff");
}

TEST(CATransitionTest, ALayerThatWasNeverShownJustAppears) {
    Screen screen;
    screen.show();
    auto page = screen.add({10, 10, 20, 20}, green);
    auto transition = make<CATransition>();
    transition->duration = 1;
    int ends = 0;
    transition->completion = [&](bool finished) { ends += finished; };
    page->addAnimation(transition, {});
    screen.show();
    EXPECT_EQ(screen.pixel(20, 20), New);
    screen.advance(1);
    EXPECT_EQ(ends, 1);
}

}  // namespace
}  // namespace zn
