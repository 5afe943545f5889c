// Every order of six calls, each after the one before has come to rest, or in its middle.

#include <gtest/gtest.h>

#include <array>

#include "zarnic/ZNControllerHelper.h"
#include "zarnic/ZNNavigationController.h"
#include "zarnic/ZNViewController.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

enum class Call { Push, Pop, Present, Dismiss, Anchor };
constexpr std::array calls{Call::Push, Call::Pop, Call::Present, Call::Dismiss, Call::Anchor};
constexpr int steps = 6;

/// Knows whether it is seen, by what it is told; complains when that makes no sense.
class Told : public ZNViewController {
    ZN_OBJECT(Told, ZNViewController)
public:
    explicit Told(int number) { setNavigationBarHide(number % 2 == 1); }
    void viewWillAppear(bool) override { become(Coming, seen_ == Gone || seen_ == Going); }
    void viewDidAppear(bool) override { become(Here, seen_ == Coming); }
    void viewWillDisappear(bool) override { become(Going, seen_ == Here || seen_ == Coming); }
    void viewDidDisappear(bool) override { become(Gone, seen_ == Going); }
    bool appeared() const { return seen_ == Here; }
    bool gone() const { return seen_ == Gone; }

private:
    enum Seen { Gone, Coming, Here, Going };
    void become(Seen seen, bool possible) {
        EXPECT_TRUE(possible) << "from " << seen_ << " to " << seen;
        seen_ = seen;
    }
    Seen seen_ = Gone;
};

/// Counts that each will-show is followed by its own did-show before the next one.
class Pairs : public ZNNavigationController {
    ZN_OBJECT(Pairs, ZNNavigationController)
public:
    explicit Pairs(const Ref<UIViewController>& root) : ZNNavigationController(root) {}
    void navigationControllerWillShowViewController(const Ref<UINavigationController>& navigation,
                                                    const Ref<UIViewController>& screen,
                                                    bool animated) override {
        EXPECT_EQ(coming, nullptr);
        coming = screen;
        ZNNavigationController::navigationControllerWillShowViewController(navigation, screen,
                                                                           animated);
    }
    void navigationControllerDidShowViewController(const Ref<UINavigationController>& navigation,
                                                   const Ref<UIViewController>& screen,
                                                   bool animated) override {
        EXPECT_EQ(screen, coming);
        coming = nullptr;
        ZNNavigationController::navigationControllerDidShowViewController(navigation, screen,
                                                                          animated);
    }
    Ref<UIViewController> coming;
};

/// One order of calls, and what should come of it.
class Run {
public:
    Run(Stage& stage, UIWindow& window, double pause) : stage_(stage), pause_(pause) {
        expected_.push_back(makeScreen());
        root_ = make<Pairs>(expected_.front());
        window.setRootViewController(root_);
        ZNControllerHelper::RegisterRootNavigationController(root_);
        ZNControllerHelper::SetAnchorViewController(nullptr);
    }

    void call(Call call) {
        ++number_;
        const bool animated = number_ % 3 != 0;
        switch (call) {
            case Call::Push:
                expected_.push_back(makeScreen());
                ZNControllerHelper::PushViewController(expected_.back(), animated);
                break;
            case Call::Pop:
                if (expected_.size() > 1)
                    expected_.pop_back();
                ZNControllerHelper::PopViewControllerAnimated(animated);
                break;
            case Call::Present:
                present(animated);
                break;
            case Call::Dismiss:
                completionsDue_ += presented_ != nullptr;
                presented_ = nullptr;
                ZNControllerHelper::DismissViewControllerAnimated(animated, counting());
                break;
            case Call::Anchor:
                anchor(animated);
                break;
        }
        EXPECT_EQ(root_->viewControllers(), expected_);
        EXPECT_EQ(root_->presentedViewController(), presented_);
        if (pause_ > 0)
            stage_.advance(pause_);
    }

    /// After everything has come to rest.
    void check() {
        stage_.advance(1);
        EXPECT_EQ(root_->coming, nullptr);
        EXPECT_EQ(completions_, completionsDue_);
        const auto top = as<Told>(expected_.back());
        EXPECT_EQ(top->appeared(), !presented_);
        EXPECT_EQ(top->view()->superview()->subviews().size(), 1u);
        EXPECT_EQ(root_->isNavigationBarHidden(), top->navigationBarHide());
        EXPECT_EQ(root_->navigationBar()->hidden(), top->navigationBarHide());
        EXPECT_EQ(root_->navigationBar()->items().size(), expected_.size());
        EXPECT_EQ(root_->interactivePopGestureRecognizer()->enabled(), expected_.size() > 1);
        for (const auto& screen : made_) {
            const bool seen = screen == presented_ || (screen == top && !presented_);
            EXPECT_TRUE(seen ? screen->appeared() : screen->gone());
        }
        EXPECT_TRUE(!presented_ || presented_->view()->window());
        root_->dismissViewControllerAnimated(false, {});
    }

private:
    Ref<Told> makeScreen() {
        made_.push_back(make<Told>(number_));
        return made_.back();
    }
    UIViewController::Completion counting() {
        return [this] { ++completions_; };
    }
    void present(bool animated) {
        const auto screen = makeScreen();
        if (!presented_) {
            presented_ = screen;
            ++completionsDue_;
        }
        ZNControllerHelper::PresentViewController(screen, animated, counting());
    }
    /// Sets it where there is none, else returns to it.
    void anchor(bool animated) {
        const auto anchor = ZNControllerHelper::AnchorViewController();
        if (!anchor)
            return ZNControllerHelper::SetAnchorViewController(expected_.back());
        const auto found = std::find(expected_.begin(), expected_.end(), anchor);
        if (found != expected_.end())
            expected_.erase(found + 1, expected_.end());
        ZNControllerHelper::PopToAnchorViewController(animated);
        EXPECT_EQ(ZNControllerHelper::AnchorViewController(), nullptr);
    }

    Stage& stage_;
    double pause_;
    Ref<Pairs> root_;
    std::vector<Ref<UIViewController>> expected_;
    std::vector<Ref<Told>> made_;
    Ref<UIViewController> presented_;
    int number_ = 0;
    int completions_ = 0;
    int completionsDue_ = 0;
};

/// The order of this number; a name for what fails.
std::array<Call, steps> order(int number, std::string& name) {
    std::array<Call, steps> result{};
    for (Call& call : result) {
        call = calls[static_cast<std::size_t>(number) % calls.size()];
        number /= static_cast<int>(calls.size());
        name += "uopda"[static_cast<int>(call)];
    }
    return result;
}

void tryAllOrders(double pause) {
    Stage::Options options;
    // Little to paint: the pictures do not matter here.
    options.framesPerSecond = 4;
    options.device.size = {100, 150};
    options.device.scale = 1;
    Stage stage(options);
    const auto window = stage.show(nullptr);
    int orders = 1;
    for (int step = 0; step < steps; ++step)
        orders *= static_cast<int>(calls.size());
    for (int number = 0; number < orders && !testing::Test::HasFailure(); ++number) {
        std::string name;
        const auto sequence = order(number, name);
        SCOPED_TRACE(name);
        Run run(stage, *window, pause);
        for (const Call call : sequence)
            run.call(call);
        run.check();
        stage.takeLog();
    }
}

TEST(NavigationOrders, EndWellOneAfterTheOther) {
    tryAllOrders(0.5);
}

TEST(NavigationOrders, EndWellInTheMiddleOfOneAnother) {
    tryAllOrders(0.1);
}

TEST(NavigationOrders, EndWellWithoutAnyTimeBetween) {
    tryAllOrders(0);
}

}  // namespace
}  // namespace zn
