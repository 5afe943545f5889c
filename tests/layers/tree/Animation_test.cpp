#include <cmath>
#include <numbers>

#include "tests/layers/Screen.h"
#include "zarnic/platform/layers/DisplayTick.h"

namespace zn {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

/// Completions as they come, with the moment since the beginning: "fade 1 0.30".
struct Log {
    double since() const { return testClock().monotonic() - begin; }
    std::function<void(bool)> completion(std::string name) {
        return [this, name](bool finished) {
            char text[64];
            std::snprintf(text, sizeof text, "%s %d %.2f", name.c_str(), finished, since());
            lines.push_back(text);
        };
    }
    std::vector<std::string> lines;
    double begin = testClock().monotonic();
};

Ref<CABasicAnimation> fade(double from, double to, double duration) {
    auto animation = make<CABasicAnimation>("opacity");
    animation->fromValue = from;
    animation->toValue = to;
    animation->duration = duration;
    return animation;
}

struct AnimationTest : testing::Test {
    AnimationTest() : box(screen.add({10, 10, 20, 20}, red)) { screen.show(); }
    ~AnimationTest() override {
        if (box)
            box->removeAllAnimations();
        testClock().settle();
    }

    void add(const Ref<CAAnimation>& animation, const std::string& name,
             std::string_view key = {}) {
        animation->completion = log.completion(name);
        box->addAnimation(animation, key);
    }

    Screen screen;
    Ref<CALayer> box;
    Log log;
};

TEST_F(AnimationTest, RunsItsCourseByTheClockAlone) {
    add(fade(0, 1, 0.3), "fade");
    EXPECT_TRUE(box->animates("opacity"));
    EXPECT_EQ(box->opacity(), 1);
    EXPECT_EQ(box->presentationOpacity(), 0);
    screen.advance(0.15);
    EXPECT_NEAR(box->presentationOpacity(), 0.5, 1e-9);
    EXPECT_TRUE(screen.compositor.animating());
    EXPECT_NEAR(screen.greenAt(20, 20), 128, 1);
    testClock().advance(5);
    EXPECT_THAT(log.lines, ElementsAre("fade 1 0.30"));
    EXPECT_FALSE(box->animates("opacity"));
    EXPECT_FALSE(screen.compositor.animating());
    screen.compositor.composite();
    EXPECT_EQ(screen.pixel(20, 20), "ffff0000");
    EXPECT_THAT(screen.compositor.composite(), IsEmpty());
}

TEST_F(AnimationTest, RemovedAndReplacedOnesEndWithNo) {
    add(fade(0, 1, 0.3), "first", "opacity");
    testClock().advance(0.1);
    add(fade(1, 0, 0.3), "second", "opacity");
    EXPECT_THAT(log.lines, IsEmpty()) << "never inside the call that caused it";
    testClock().settle();
    EXPECT_THAT(log.lines, ElementsAre("first 0 0.10"));
    box->removeAllAnimations();
    EXPECT_FALSE(box->animates("opacity"));
    testClock().advance(1);
    EXPECT_THAT(log.lines, ElementsAre("first 0 0.10", "second 0 0.10"));
    EXPECT_THAT(box->animationKeys(), IsEmpty());
}

TEST_F(AnimationTest, EmptyKeysKeepAll) {
    add(fade(0, 1, 0.2), "a");
    add(fade(0, 1, 0.1), "b");
    testClock().advance(1);
    EXPECT_THAT(log.lines, ElementsAre("b 1 0.10", "a 1 0.20"));
}

TEST_F(AnimationTest, OneWithoutDurationIsOverInTheNextPass) {
    add(fade(0, 1, 0), "none");
    EXPECT_THAT(log.lines, IsEmpty());
    testClock().settle();
    EXPECT_THAT(log.lines, ElementsAre("none 1 0.00"));
}

TEST_F(AnimationTest, WhatNobodySeesIsOverWithThePass) {
    auto loose = make<CALayer>();
    auto animation = fade(0, 1, 5);
    animation->completion = log.completion("loose");
    loose->addAnimation(animation, "opacity");
    box->setHidden(true);
    add(fade(0, 1, 5), "hidden");
    testClock().settle();
    EXPECT_THAT(log.lines, ElementsAre("loose 1 0.00", "hidden 1 0.00"));
    EXPECT_FALSE(loose->animates("opacity"));
}

TEST_F(AnimationTest, OneThatLeavesTheScreenIsOverButAnEndlessOneWaits) {
    auto spin = make<CABasicAnimation>("transform.rotation");
    spin->fromValue = 0.0;
    spin->toValue = 2 * std::numbers::pi;
    spin->duration = 1;
    spin->repeatCount = CAAnimation::RepeatsForever;
    add(spin, "spin", "spin");
    add(fade(0, 1, 5), "fade");
    testClock().advance(0.25);
    AffineTransform turned = std::get<AffineTransform>(box->presentationValue("transform"));
    EXPECT_NEAR(turned.b, 1, 1e-9) << "a quarter turn";
    box->removeFromSuperlayer();
    testClock().advance(1);
    EXPECT_THAT(log.lines, ElementsAre("fade 1 0.25"));
    EXPECT_FALSE(screen.compositor.animating());
    screen.root->addSublayer(box);
    testClock().settle();
    EXPECT_TRUE(screen.compositor.animating());
    box->removeAllAnimations();
    testClock().settle();
    EXPECT_THAT(log.lines, ElementsAre("fade 1 0.25", "spin 0 1.25"));
}

TEST_F(AnimationTest, DestroyedLayersTellTheirAnimationsEnd) {
    add(fade(0, 1, 5), "fade");
    testClock().settle();
    box->removeFromSuperlayer();
    box.reset();
    testClock().settle();
    EXPECT_THAT(log.lines, ElementsAre("fade 0 0.00"));
}

TEST_F(AnimationTest, RepeatsReversesWaitsAndHolds) {
    auto animation = fade(0, 1, 1);
    animation->delay = 1;
    animation->repeatCount = 1.5;
    animation->autoreverses = true;
    animation->fillMode = CAFillMode::Both;
    animation->removedOnCompletion = false;
    add(animation, "all", "all");
    auto at = [&](double moment) {
        testClock().advance(moment - log.since());
        return box->presentationOpacity();
    };
    EXPECT_NEAR(at(0.5), 0, 1e-9) << "held before it begins";
    EXPECT_NEAR(at(1.25), 0.25, 1e-9);
    EXPECT_NEAR(at(2.25), 0.75, 1e-9) << "on the way back";
    EXPECT_NEAR(at(3.25), 0.25, 1e-9) << "the second run";
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_NEAR(at(5), 1, 1e-9) << "held where one and a half runs end";
    EXPECT_THAT(log.lines, ElementsAre("all 1 4.00"));
    EXPECT_FALSE(screen.compositor.animating());
    EXPECT_EQ(box->animationForKey("all"), animation);
    screen.compositor.composite();
    EXPECT_EQ(screen.pixel(20, 20), "ffff0000");
    box->removeAnimationForKey("all");
    testClock().settle();
    EXPECT_THAT(log.lines, ElementsAre("all 1 4.00"));
}

TEST_F(AnimationTest, CompletionsMayChangeTheTreeAndAnimateAgain) {
    auto first = fade(0, 1, 0.1);
    first->completion = [&](bool) {
        add(fade(1, 0, 0.1), "second");
        box->setPosition({5, 5});
    };
    box->addAnimation(first, "opacity");
    testClock().advance(1);
    EXPECT_THAT(log.lines, ElementsAre("second 1 0.20"));
}

TEST_F(AnimationTest, LayersWithoutOwnerAnimateByThemselves) {
    auto fresh = make<CALayer>();
    fresh->setOpacity(0.5);
    EXPECT_FALSE(fresh->animates("opacity")) << "nothing to come from";
    box->setOpacity(0);
    EXPECT_EQ(box->opacity(), 0);
    EXPECT_EQ(box->presentationOpacity(), 1);
    testClock().advance(0.1);
    double shown = box->presentationOpacity();
    EXPECT_THAT(shown, DoubleNear(0.45, 0.4));
    box->setOpacity(1);
    EXPECT_NEAR(box->presentationOpacity(), shown, 1e-9) << "goes on from what is shown";
    testClock().advance(0.25);
    EXPECT_FALSE(box->animates("opacity"));
    box->setPosition({0, 0});
    EXPECT_TRUE(box->animates("position"));
    CATransaction::setDisableActions(true);
    box->setPosition({1, 1});
    EXPECT_FALSE(box->animates("position")) << "jumps";
    EXPECT_EQ(box->presentationFrame().origin, (Point{-9, -9}));
}

/// Gives an animation for one property, like a view inside an animation block.
class Owner final : public CALayerDelegate {
public:
    Ref<CAAnimation> actionForLayer(CALayer&, std::string_view property) override {
        asked.emplace_back(property);
        if (!animate)
            return nullptr;
        auto animation = make<CABasicAnimation>(std::string(property));
        animation->duration = 1;
        return animation;
    }
    bool animate = false;
    std::vector<std::string> asked;
};

TEST_F(AnimationTest, TheOwnerDecides) {
    Owner owner;
    box->setDelegate(&owner);
    box->setOpacity(0);
    EXPECT_FALSE(box->animates("opacity"));
    owner.animate = true;
    box->setOpacity(1);
    EXPECT_EQ(box->presentationOpacity(), 0) << "from the model, although never on the screen";
    box->setFrame({0, 0, 30, 30});
    EXPECT_THAT(owner.asked, ElementsAre("opacity", "opacity", "bounds", "position"));
    testClock().advance(0.5);
    EXPECT_EQ(box->presentationFrame(), Rect(5, 5, 25, 25));
    owner.animate = false;
    box->setOpacity(0.25);
    EXPECT_FALSE(box->animates("opacity"));
    EXPECT_EQ(box->presentationOpacity(), 0.25);
    owner.asked.clear();
    box->setOpacity(0.25);
    EXPECT_THAT(owner.asked, IsEmpty()) << "no change, no question";
    box->setDelegate(nullptr);
}

TEST_F(AnimationTest, TransactionsNestAndTellWhenAllHasEnded) {
    CATransaction::begin();
    CATransaction::setAnimationDuration(0.5);
    CATransaction::setCompletionBlock([&] { log.completion("all")(true); });
    CATransaction::begin();
    EXPECT_EQ(CATransaction::animationDuration(), 0.5);
    CATransaction::setAnimationDuration(1);
    box->setOpacity(0);
    CATransaction::commit();
    EXPECT_EQ(CATransaction::animationDuration(), 0.5);
    box->setPosition({0, 0});
    CATransaction::commit();
    EXPECT_EQ(CATransaction::animationDuration(), 0.25);
    testClock().advance(0.6);
    EXPECT_FALSE(box->animates("position"));
    EXPECT_TRUE(box->animates("opacity"));
    testClock().advance(1);
    EXPECT_THAT(log.lines, ElementsAre("all 1 1.00"));
    CATransaction::setCompletionBlock([&] { log.completion("nothing")(true); });
    testClock().settle();
    EXPECT_THAT(log.lines, ElementsAre("all 1 1.00", "nothing 1 1.60"));
}

TEST_F(AnimationTest, TransformsTurnTheShortWay) {
    auto animation = make<CABasicAnimation>("transform");
    animation->fromValue = AffineTransform::rotation(3);
    animation->toValue = AffineTransform::rotation(-3).concat(AffineTransform::scale(3, 3));
    animation->duration = 1;
    box->addAnimation(animation, "transform");
    testClock().advance(0.5);
    auto half = std::get<AffineTransform>(box->presentationValue("transform"));
    EXPECT_NEAR(half.a, -2, 1e-9);
    EXPECT_NEAR(half.b, 0, 1e-9);
    EXPECT_NEAR(half.d, -2, 1e-9);
}

TEST_F(AnimationTest, ColoursFadeFromClearWithoutTurningDark) {
    auto animation = make<CABasicAnimation>("backgroundColor");
    animation->fromValue = CGColor{};
    animation->toValue = red;
    animation->duration = 1;
    box->addAnimation(animation, {});
    testClock().advance(0.5);
    EXPECT_EQ(std::get<CGColor>(box->presentationValue("backgroundColor")),
              (CGColor{1, 0, 0, 0.5}));
}

TEST_F(AnimationTest, KeyframesKeepTheirTimes) {
    auto animation = make<CAKeyframeAnimation>("opacity");
    animation->values = {0.0, 1.0, 0.5};
    animation->keyTimes = {0, 0.8, 1};
    animation->duration = 1;
    box->addAnimation(animation, {});
    testClock().advance(0.4);
    EXPECT_NEAR(box->presentationOpacity(), 0.5, 1e-9);
    testClock().advance(0.5);
    EXPECT_NEAR(box->presentationOpacity(), 0.75, 1e-9);
}

TEST(CAMediaTimingFunctionTest, FollowsTheCurve) {
    for (auto function : {CAMediaTimingFunction::linear(), CAMediaTimingFunction::easeIn(),
                          CAMediaTimingFunction::easeOut(), CAMediaTimingFunction::easeInEaseOut(),
                          CAMediaTimingFunction::standard()}) {
        EXPECT_EQ(function.at(-1), 0);
        EXPECT_EQ(function.at(2), 1);
        double last = 0;
        for (double t = 0; t <= 1; t += 0.05) {
            EXPECT_GE(function.at(t), last);
            last = function.at(t);
        }
    }
    // The published values of the curve (0.25, 0.1, 0.25, 1) and of (0.42, 0, 0.58, 1).
    EXPECT_NEAR(CAMediaTimingFunction::standard().at(0.5), 0.8024, 1e-4);
    EXPECT_NEAR(CAMediaTimingFunction::easeInEaseOut().at(0.25), 0.1292, 1e-4);
    EXPECT_NEAR(CAMediaTimingFunction::easeInEaseOut().at(0.5), 0.5, 1e-9);
}

TEST(DisplayTickTest, TicksOnAnEvenGrid) {
    Log log;
    std::vector<double> frames;
    DisplayTick tick([&] { frames.push_back(log.since()); }, 10);
    tick.start();
    tick.start();
    testClock().advance(0.35);
    ASSERT_EQ(frames.size(), 3u);
    EXPECT_NEAR(frames[2], 0.3, 1e-9);
    tick.stop();
    testClock().advance(1);
    EXPECT_EQ(frames.size(), 3u);
}

}  // namespace
}  // namespace zn
