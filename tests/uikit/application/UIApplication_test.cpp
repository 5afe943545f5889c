#include "zarnic/platform/uikit/UIApplication.h"

#include <algorithm>

#include "tests/uikit/touch/TouchFixture.h"
#include "zarnic/platform/drawing/NSValue.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/host/HeadlessHost.h"
#include "zarnic/platform/layers/Compositor.h"
#include "zarnic/platform/services/Services.h"
#include "zarnic/platform/uikit/UIViewController.h"
#include "zarnic/testing/FakeDeviceFacts.h"
#include "zarnic/testing/FakeURLOpener.h"

namespace zn::test {
namespace {

class Controller : public UIViewController {
    ZN_OBJECT(Controller, UIViewController)
public:
    bool hides = false;
    std::int64_t style = 0;
    std::int64_t animation = 0;
    int asked = 0;
    bool prefersStatusBarHidden() const override {
        ++const_cast<Controller*>(this)->asked;
        return hides;
    }
    std::int64_t preferredStatusBarStyle() const override { return style; }
    std::int64_t preferredStatusBarUpdateAnimation() const override { return animation; }
};

class KeyboardWatcher : public NSObject {
    ZN_OBJECT(KeyboardWatcher, NSObject)
public:
    explicit KeyboardWatcher(Journal& journal) : journal_(journal) {}
    Rect begin, end;
    double duration = -1;

    void note(const Ref<NSNotification>& notification) {
        std::string name = notification->name();
        // "UIKeyboardWillShowNotification" is written as "WillShow".
        journal_.add(name.substr(10, name.size() - 10 - 12));
        const Dictionary details = notification->userInfo().dictionary();
        begin = details[UIKeyboardFrameBeginUserInfoKey].object<NSValue>()->rectValue();
        end = details[UIKeyboardFrameEndUserInfoKey].object<NSValue>()->rectValue();
        duration = details[UIKeyboardAnimationDurationUserInfoKey].doubleValue();
    }

private:
    Journal& journal_;
};

class StatusBarTest : public TouchTest {
protected:
    void SetUp() override {
        TouchTest::SetUp();
        controller = make<Controller>();
        window->setRootViewController(controller);
        clock.settle();
    }
    Ref<Controller> controller;
};

TEST_F(StatusBarTest, ItFollowsTheTopmostWindowWithAControllerHoweverSmall) {
    EXPECT_EQ(application->statusBarFrame(), (Rect{0, 0, 375, 20}));
    const auto plain = make<UIWindow>(Rect{0, 0, 375, 667});
    plain->setHidden(false);
    const auto toast = make<UIWindow>(Rect{100, 100, 50, 50});
    const auto top = make<Controller>();
    top->hides = true;
    top->style = 1;
    toast->setRootViewController(top);
    clock.settle();
    EXPECT_FALSE(application->statusBarHidden());
    toast->setHidden(false);
    clock.settle();
    EXPECT_TRUE(application->statusBarHidden());
    EXPECT_EQ(application->statusBarStyle(), UIStatusBarStyle::LightContent);
    EXPECT_EQ(application->statusBarFrame(), Rect());
    toast->setHidden(true);
    clock.settle();
    EXPECT_FALSE(application->statusBarHidden());
    EXPECT_EQ(application->statusBarStyle(), UIStatusBarStyle::Default);
}

TEST_F(StatusBarTest, ItIsAskedOnceAPassAndToggleWithinOneShowsNothing) {
    controller->asked = 0;
    controller->hides = true;
    controller->setNeedsStatusBarAppearanceUpdate();
    application->setNeedsStatusBarAppearanceUpdate();
    EXPECT_EQ(controller->asked, 0);
    controller->hides = false;
    application->setNeedsStatusBarAppearanceUpdate();
    clock.settle();
    EXPECT_EQ(controller->asked, 1);
    EXPECT_FALSE(application->statusBarHidden());
    clock.settle();
    EXPECT_EQ(controller->asked, 1);
}

TEST_F(StatusBarTest, ItGoesAndComesInTheWayTheControllerSays) {
    const auto screen = UIScreen::mainScreen();
    // Only what is on a screen animates.
    const Compositor compositor(screen->rootLayer(), screen->scale());
    const Ref<CALayer> bar = screen->rootLayer()->sublayers().back();
    ASSERT_EQ(bar->name(), "status bar");
    struct Case {
        std::int64_t animation;
        double opacityHidden;
        double topHidden;
        const char* animated;
    };
    for (const Case& each :
         {Case{0, 0, 0, ""}, Case{1, 0, 0, "opacity"}, Case{2, 1, -20, "position"}}) {
        controller->animation = each.animation;
        for (const bool hides : {true, false}) {
            controller->hides = hides;
            application->setNeedsStatusBarAppearanceUpdate();
            clock.settle();
            EXPECT_EQ(bar->opacity(), hides ? each.opacityHidden : 1) << each.animation;
            EXPECT_EQ(bar->frame().origin.y, hides ? each.topHidden : 0) << each.animation;
            EXPECT_EQ(bar->animates("opacity"), std::string(each.animated) == "opacity");
            EXPECT_EQ(bar->animates("position"), std::string(each.animated) == "position");
            clock.advance(1);
        }
    }
}

/// Whether anything is drawn in a part of the status bar, in points.
bool hasInk(HeadlessHost& host, const Rect& part) {
    const auto picture = host.snapshot()->cgImage();
    const double scale = host.screen().compositor().scale();
    const auto cut = picture->imageInRect({part.origin.x * scale, part.origin.y * scale,
                                           part.size.width * scale, part.size.height * scale});
    const std::uint32_t ground = cut->pixels().front();
    return std::any_of(cut->pixels().begin(), cut->pixels().end(),
                       [ground](std::uint32_t pixel) { return pixel != ground; });
}

class StatusBarPictureTest : public testing::Test {
protected:
    void SetUp() override {
        testClock();
        Services::replace<DeviceFacts>(facts);
        host.emplace();
        window = make<UIWindow>();
        window->setBackgroundColor(UIColor::whiteColor());
        window->setRootViewController(make<Controller>());
        window->setHidden(false);
        testClock().settle();
    }
    const Rect time{160, 2, 55, 16};
    const Rect battery{340, 2, 33, 16};
    Ref<FakeDeviceFacts> facts = make<FakeDeviceFacts>();
    std::optional<HeadlessHost> host;
    Ref<UIWindow> window;
};

TEST_F(StatusBarPictureTest, ItShowsTheTimeAndFollowsIt) {
    EXPECT_TRUE(hasInk(*host, time));
    const auto before = host->snapshot()->cgImage()->imageInRect({320, 0, 110, 40});
    testClock().advance(59.5);
    const auto same = host->snapshot()->cgImage()->imageInRect({320, 0, 110, 40});
    EXPECT_TRUE(std::ranges::equal(before->pixels(), same->pixels()));
    testClock().advance(1);
    const auto after = host->snapshot()->cgImage()->imageInRect({320, 0, 110, 40});
    EXPECT_FALSE(std::ranges::equal(before->pixels(), after->pixels()));
}

TEST_F(StatusBarPictureTest, ABatteryIsThereOnlyWhereThereIsOne) {
    EXPECT_TRUE(hasInk(*host, battery));
    facts->facts.battery = BatteryReading();
    testClock().advance(61);
    EXPECT_FALSE(hasInk(*host, battery));
}

TEST(OpenURLTest, URLsGoToTheDesktop) {
    testClock();
    const auto opener = make<FakeURLOpener>();
    Services::replace<URLOpener>(opener);
    std::vector<bool> results;
    const auto note = [&results](bool success) { results.push_back(success); };
    const auto application = UIApplication::sharedApplication();
    application->openURL("https://example.org/a");
    application->openURL("tel:123", {}, note);
    application->openURL("no scheme", {}, note);
    EXPECT_TRUE(results.empty());
    testClock().settle();
    EXPECT_EQ(opener->opened, (std::vector<std::string>{"https://example.org/a", "tel:123"}));
    EXPECT_EQ(results, (std::vector<bool>{true, false}));
}

class KeyboardTest : public TouchTest {
protected:
    void SetUp() override {
        TouchTest::SetUp();
        for (const char* name : {UIKeyboardWillShowNotification, UIKeyboardDidShowNotification,
                                 UIKeyboardWillHideNotification, UIKeyboardDidHideNotification})
            NSNotificationCenter::defaultCenter()->addObserver(ZN_ACTION(watcher, note), name);
    }
    Ref<KeyboardWatcher> watcher = make<KeyboardWatcher>(journal);
};

TEST_F(KeyboardTest, ItAnnouncesThatItComesAndThatItIsThere) {
    application->showKeyboard(216);
    EXPECT_EQ(journal.take(), "WillShow");
    EXPECT_EQ(watcher->begin, (Rect{0, 667, 375, 216}));
    EXPECT_EQ(watcher->end, (Rect{0, 451, 375, 216}));
    EXPECT_EQ(watcher->duration, 0.25);
    EXPECT_EQ(application->keyboardHeight(), 216);
    clock.advance(0.24);
    EXPECT_EQ(journal.take(), "");
    clock.advance(0.02);
    EXPECT_EQ(journal.take(), "DidShow");
}

TEST_F(KeyboardTest, AnotherHeightIsAnnouncedAndTheSameOneIsNot) {
    application->showKeyboard(216);
    clock.advance(1);
    application->showKeyboard(216);
    EXPECT_EQ(journal.take(), "WillShow DidShow");
    application->showKeyboard(260);
    EXPECT_EQ(journal.take(), "WillShow");
    EXPECT_EQ(watcher->begin, (Rect{0, 451, 375, 216}));
    EXPECT_EQ(watcher->end, (Rect{0, 407, 375, 260}));
}

TEST_F(KeyboardTest, ItLeavesBelowTheScreen) {
    application->hideKeyboard();
    EXPECT_EQ(journal.take(), "");
    application->showKeyboard(216);
    // Turned round before it arrived: it never does.
    application->hideKeyboard(0.1);
    clock.advance(1);
    EXPECT_EQ(journal.take(), "WillShow WillHide DidHide");
    EXPECT_EQ(watcher->end, (Rect{0, 667, 375, 216}));
    EXPECT_EQ(watcher->duration, 0.1);
    EXPECT_EQ(application->keyboardHeight(), 0);
}

}  // namespace
}  // namespace zn::test
