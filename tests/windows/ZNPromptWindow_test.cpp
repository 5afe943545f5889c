#include "tests/support/Places.h"
#include "zarnic/ZNPromptWindow.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/windows/PromptFixture.h"
#include "zarnic/testing/Pictures.h"

namespace zn {
namespace {

constexpr const char* error = "【ZNPromptWindow】参数错误，请检查.";

TEST_F(PromptTest, ViewsAreMadeAsTheContractHasThem) {
    ZNPromptWindow::InitPromptWindow(77);
    EXPECT_EQ(prompt->centerView()->frame(), Rect(127, 310, 120, 46));
    EXPECT_EQ(prompt->centerView()->subviews(),
              (std::vector<Ref<UIView>>{prompt->maskView(), prompt->msgLab()}));
    EXPECT_EQ(prompt->maskView()->alpha(), 0.74);
    EXPECT_EQ(prompt->maskView()->layer()->cornerRadius(), 8);
    EXPECT_TRUE(prompt->maskView()->clipsToBounds());
    EXPECT_EQ(prompt->msgLab()->numberOfLines(), 0);
    EXPECT_EQ(prompt->msgLab()->textAlignment(), NSTextAlignment::Center);
    EXPECT_EQ(prompt->msgLab()->font()->pointSize(), 15);
    EXPECT_EQ(prompt->promptWindow()->windowLevel(), 77);
    EXPECT_TRUE(prompt->promptWindow()->hidden());
    ZNPromptWindow::InitPromptWindow(99);
    EXPECT_EQ(prompt->promptWindow()->windowLevel(), 77) << "the level is read once";
    EXPECT_TRUE(prompt->ctr()->navigationBarHide());
    EXPECT_EQ(prompt->ctr()->preferredStatusBarStyle(), 1);
    EXPECT_EQ(prompt->ctr()->preferredStatusBarUpdateAnimation(), 2);
    EXPECT_TRUE(prompt->timer()->valid());
    EXPECT_GT(prompt->timer()->fireDate()->timeIntervalSinceNow(), 1e8) << "made paused";
}

TEST_F(PromptTest, DurationFollowsTheLengthInUTF16Units) {
    const struct {
        std::string text;
        double duration;
    } cases[] = {
        {"1234567890", 2},
        {"12345678901", 3},
        {std::string(20, 'x'), 3},
        {std::string(21, 'x'), 4},
        {"一二三四五六七八九十", 2},
        {"一二三四五六七八九十一", 3},
        {"😀😀😀😀😀", 2},
        {"😀😀😀😀😀😀", 3},
    };
    for (const auto& [text, duration] : cases) {
        ZNPromptWindow::ShowMsg(text);
        EXPECT_EQ(prompt->duration(), duration) << text;
    }
}

TEST_F(PromptTest, CountsFromTheEndOfTheFadeInAndExpiresWithinATick) {
    ZNPromptWindow::ShowMsg("Saved", 1.5);
    EXPECT_TRUE(visible());
    EXPECT_EQ(prompt->promptWindow()->alpha(), 1) << "the model is final at once";
    EXPECT_EQ(shownAlpha(), 0);
    stage.advance(fade / 2);
    EXPECT_NEAR(shownAlpha(), 0.5, 0.01);
    EXPECT_EQ(prompt->time(), 0) << "not counting yet";
    stage.advance(fade / 2);
    EXPECT_EQ(shownAlpha(), 1);
    const double left = lifetime();
    EXPECT_GE(left, 1.5 + fade - 1e-6);
    EXPECT_LE(left, 1.5 + tick + fade + 0.011);
    EXPECT_FALSE(prompt->showing());
    EXPECT_GT(prompt->timer()->fireDate()->timeIntervalSinceNow(), 1e8) << "paused again";
}

TEST_F(PromptTest, UnusableArgumentsAreLoggedAndChangeNothing) {
    ZNPromptWindow::ShowMsg("");
    ZNPromptWindow::ShowMsg("", 2);
    ZNPromptWindow::ShowMsg("text", 0);
    ZNPromptWindow::ShowMsg("text", -1);
    ZNPromptWindow::ShowMsg("text", std::nan(""));
    ZNPromptWindow::ShowMsg("", 2, true, false, 0);
    stage.settle();
    EXPECT_EQ(stage.takeLog(), std::vector<std::string>(6, error));
    EXPECT_FALSE(prompt->showing());
    EXPECT_EQ(prompt->msg(), "");
}

TEST_F(PromptTest, SecondMessageDuringTheFadeInEndsItAndCountsFromItsRequest) {
    ZNPromptWindow::ShowMsg("first", 5);
    stage.advance(0.1);
    ZNPromptWindow::ShowMsg("the second, which is longer", 1);
    EXPECT_EQ(shownAlpha(), 1);
    EXPECT_EQ(prompt->time(), now() + 1);
    EXPECT_EQ(prompt->msgLab()->text(), "the second, which is longer");
    stage.advance(fade);
    EXPECT_LT(prompt->time(), now() + 1) << "the cancelled fade-in must not count again";
    EXPECT_NEAR(lifetime(), 1, tick + 0.02);
}

TEST_F(PromptTest, MessageDuringTheFadeOutBringsItBackAtOnce) {
    ZNPromptWindow::ShowMsg("first", 1);
    stage.advance(1 + fade);
    ZNPromptWindow::Hide();
    stage.advance(0.1);
    EXPECT_LT(shownAlpha(), 1);
    ZNPromptWindow::ShowMsg("second", 1);
    EXPECT_EQ(shownAlpha(), 1);
    stage.advance(0.9);
    EXPECT_TRUE(visible());
    EXPECT_EQ(shownAlpha(), 1);
    stage.advance(0.1 + tick + fade);
    EXPECT_FALSE(visible());
}

TEST_F(PromptTest, HideBeforeAnyMessageLeavesNothingVisible) {
    ZNPromptWindow::Hide();
    stage.advance(1);
    EXPECT_FALSE(visible());
    EXPECT_FALSE(prompt->showing());
    ZNPromptWindow::ShowMsg("now", 2);
    stage.advance(fade);
    EXPECT_TRUE(visible());
    EXPECT_EQ(shownAlpha(), 1);
}

TEST_F(PromptTest, ToastIsCentredAboveTheKeyboardAndMovesWithIt) {
    const std::string text = "A message that is wider than three fifths of the screen wraps";
    stage.keyboard(216);
    ZNPromptWindow::ShowMsg(text, 5);
    EXPECT_EQ(toast(), expectedToast(text, 216));
    stage.advance(fade);
    stage.keyboard(300, 0.5);
    EXPECT_EQ(toast(), expectedToast(text, 300));
    stage.advance(0.4);
    EXPECT_GT(prompt->promptWindow()->layer()->presentationFrame().minY(), toast().minY());
    stage.advance(0.1);
    EXPECT_EQ(prompt->promptWindow()->layer()->presentationFrame().minY(), toast().minY());
    stage.keyboard(0, 2);
    EXPECT_EQ(toast(), expectedToast(text, 0));
    stage.advance(0.25);
    EXPECT_EQ(prompt->promptWindow()->layer()->presentationFrame().minY(), toast().minY())
        << "hiding takes a quarter of a second, whatever the keyboard takes";
}

TEST_F(PromptTest, LongMessagesWrapAndGrowTheToast) {
    ZNPromptWindow::ShowMsg("short", 1);
    const double line = toast().height();
    ZNPromptWindow::ShowMsg("A message that is wider than three fifths of the screen wraps", 1);
    EXPECT_GT(toast().height(), line * 1.3);
    EXPECT_LE(toast().width(), 375 * 3.0 / 5 + 43);
    EXPECT_EQ(prompt->maskView()->frame(), prompt->centerView()->bounds());
    EXPECT_EQ(prompt->msgLab()->frame(), Rect(21, 15, toast().width() - 42, toast().height() - 30));
}

TEST_F(PromptTest, WithoutScreenLockTouchesBesideTheToastReachTheApplication) {
    ZNPromptWindow::ShowMsg("text", 2, false, false, 0);
    stage.advance(fade);
    EXPECT_TRUE(UIApplication::sharedApplication()->statusBarHidden())
        << "on purpose: the argument counts with a screen lock only";
    stage.tap(Point{20, 100});
    EXPECT_EQ(application->taps, 1);
    stage.tap(toast().center());
    EXPECT_EQ(application->taps, 1) << "the toast itself takes touches";
    EXPECT_EQ(prompt->promptWindow()->backgroundColor()->cgColor().alpha, 0);
    EXPECT_NEAR(prompt->promptWindow()->layer()->shadowColor().alpha, 0.6, 1e-9);
    EXPECT_EQ(prompt->centerView()->layer()->shadowColor().alpha, 0);
    EXPECT_EQ(prompt->centerView()->frame(), prompt->promptWindow()->bounds());
}

TEST_F(PromptTest, ScreenLockDimsTheScreenAndCatchesTouches) {
    ZNPromptWindow::ShowMsg("text", 2, true, false, 1);
    stage.advance(fade);
    EXPECT_FALSE(UIApplication::sharedApplication()->statusBarHidden());
    EXPECT_EQ(UIApplication::sharedApplication()->statusBarStyle(), UIStatusBarStyle::LightContent);
    stage.tap(Point{20, 100});
    EXPECT_EQ(application->taps, 0);
    EXPECT_EQ(prompt->promptWindow()->frame(), Rect(0, 0, 375, 667));
    EXPECT_NEAR(prompt->promptWindow()->backgroundColor()->cgColor().alpha, 0.3, 1e-9);
    EXPECT_EQ(prompt->promptWindow()->layer()->shadowColor().alpha, 0);
    EXPECT_NEAR(prompt->centerView()->layer()->shadowColor().alpha, 0.6, 1e-9);
    stage.advance(2 + tick + fade);
    EXPECT_FALSE(visible());
    EXPECT_EQ(UIApplication::sharedApplication()->statusBarStyle(), UIStatusBarStyle::Default);
}

TEST_F(PromptTest, NeverTakesTheKeyWindow) {
    const auto key = UIApplication::sharedApplication()->keyWindow();
    ZNPromptWindow::ShowMsg("text", 1, true, true, 1);
    stage.advance(fade);
    EXPECT_EQ(UIApplication::sharedApplication()->keyWindow(), key);
}

TEST_F(PromptTest, RequestsFromOtherThreadsShowOnTheMainThread) {
    std::thread([] { ZNPromptWindow::ShowMsg("from afar", 1); }).join();
    EXPECT_FALSE(prompt->showing()) << "only the main thread shows";
    EXPECT_EQ(prompt->msg(), "from afar");
    stage.settle();
    EXPECT_TRUE(prompt->showing());
    std::thread([] { ZNPromptWindow::Hide(); }).join();
    stage.advance(fade);
    EXPECT_FALSE(visible());
}

TEST_F(PromptTest, LooksAsItShould) {
    const std::string folder = sourceFolder() + "/tests/windows/golden/";
    application->setBackgroundColor(UIColor::whiteColor());
    const struct {
        const char* name;
        const char* text;
        bool lock;
    } cases[] = {
        {"toast", "Saved to your library", false},
        {"toast-chinese", "已复制到剪贴板，您可以在其他应用中粘贴", true},
    };
    for (const auto& [name, text, lock] : cases) {
        ZNPromptWindow::ShowMsg(text, 2, lock, false, 1);
        stage.advance(1);
        const auto difference =
            compareWithGolden(stage.snapshot(), folder + name + ".png", "golden-failures");
        EXPECT_TRUE(difference.same)
            << name << ": " << difference.pixels << " pixels differ " << difference.problem;
        stage.advance(3);
    }
}

}  // namespace
}  // namespace zn
