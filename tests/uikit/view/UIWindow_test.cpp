#include "zarnic/platform/uikit/UIWindow.h"

#include <gmock/gmock.h>

#include "tests/uikit/touch/TouchFixture.h"
#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/uikit/UIViewController.h"

namespace zn::test {
namespace {

using testing::ElementsAre;

class Writer : public NSObject {
    ZN_OBJECT(Writer, NSObject)
public:
    explicit Writer(Journal& journal) : journal_(journal) {}
    void note(const Ref<NSNotification>& notification) { journal_.add(notification->name()); }

private:
    Journal& journal_;
};

class Controller : public UIViewController {
    ZN_OBJECT(Controller, UIViewController)
public:
    explicit Controller(Journal& journal) : journal_(journal) {}
    void viewWillAppear(bool) override { journal_.add("will-appear"); }
    void viewDidAppear(bool) override { journal_.add("did-appear"); }
    void viewWillDisappear(bool) override { journal_.add("will-disappear"); }
    void viewDidDisappear(bool) override { journal_.add("did-disappear"); }

private:
    Journal& journal_;
};

class Editor : public UIView {
    ZN_OBJECT(Editor, UIView)
public:
    bool canBecomeFirstResponder() const override { return true; }
};

class UIWindowTest : public TouchTest {
protected:
    Ref<UIWindow> addWindow(double level = 0) {
        const auto made = make<UIWindow>(Rect{0, 0, 375, 667});
        made->setWindowLevel(level);
        made->setHidden(false);
        return made;
    }

    /// The windows' letters, back to front, as their layers lie; "|" is the status bar.
    std::string order(const std::vector<std::pair<char, Ref<UIWindow>>>& windows) {
        std::string letters;
        for (const Ref<CALayer>& layer : UIScreen::mainScreen()->rootLayer()->sublayers()) {
            char letter = layer == window->layer() ? '\0' : '|';
            for (const auto& [name, each] : windows)
                if (each->layer() == layer)
                    letter = name;
            if (letter != '\0')
                letters += letter;
        }
        return letters;
    }
};

TEST_F(UIWindowTest, WindowsLieByLevelThenByWhenTheyWereShown) {
    const auto a = addWindow(), b = addWindow(), c = addWindow(2000), d = addWindow(1);
    const std::vector<std::pair<char, Ref<UIWindow>>> all{{'a', a}, {'b', b}, {'c', c}, {'d', d}};
    EXPECT_EQ(order(all), "abd|c");
    a->setHidden(true);
    EXPECT_EQ(order(all), "bd|c");
    a->setHidden(false);
    EXPECT_EQ(order(all), "bad|c");
    b->makeKeyAndVisible();
    EXPECT_EQ(order(all), "abd|c");
    b->setHidden(false);
    EXPECT_EQ(order(all), "abd|c");
    c->setWindowLevel(0);
    EXPECT_EQ(order(all), "abcd|");
    a->setWindowLevel(1000);
    EXPECT_EQ(order(all), "bcd|a");
    EXPECT_THAT(application->windows(), ElementsAre(window, b, c, d, a));
}

TEST_F(UIWindowTest, TheScreenKeepsVisibleWindowsOnly) {
    auto shown = addWindow();
    const WeakRef<UIWindow> weak = shown;
    shown = nullptr;
    ASSERT_FALSE(weak.expired());
    weak.lock()->setHidden(true);
    EXPECT_TRUE(weak.expired());
    EXPECT_THAT(application->windows(), ElementsAre(window));
}

TEST_F(UIWindowTest, ShowingAndHidingPostNoticesOnce) {
    const auto writer = make<Writer>(journal);
    const auto center = NSNotificationCenter::defaultCenter();
    for (const char* name :
         {UIWindowDidBecomeVisibleNotification, UIWindowDidBecomeHiddenNotification})
        center->addObserver(ZN_ACTION(writer, note), name);
    const auto shown = make<UIWindow>(Rect{0, 0, 10, 10});
    EXPECT_TRUE(shown->hidden());
    shown->setHidden(true);
    EXPECT_EQ(journal.take(), "");
    shown->setHidden(false);
    shown->setHidden(false);
    EXPECT_EQ(journal.take(), UIWindowDidBecomeVisibleNotification);
    shown->setHidden(true);
    EXPECT_EQ(journal.take(), UIWindowDidBecomeHiddenNotification);
}

TEST_F(UIWindowTest, KeyStatusGoesBackToTheWindowThatHadItLast) {
    const auto a = addWindow(), b = addWindow(), c = addWindow();
    EXPECT_EQ(application->keyWindow(), nullptr);
    a->makeKeyWindow();
    c->makeKeyWindow();
    b->makeKeyAndVisible();
    EXPECT_TRUE(b->isKeyWindow());
    c->setHidden(true);
    EXPECT_TRUE(b->isKeyWindow());
    b->setHidden(true);
    EXPECT_TRUE(a->isKeyWindow());
    // With none left that was key, the topmost one gets it.
    c->setHidden(false);
    a->setHidden(true);
    EXPECT_TRUE(c->isKeyWindow());
    c->setHidden(true);
    EXPECT_TRUE(window->isKeyWindow());
    window->setHidden(true);
    EXPECT_EQ(application->keyWindow(), nullptr);
}

TEST_F(UIWindowTest, TheFirstRespondersWindowBecomesKey) {
    const auto other = addWindow();
    other->makeKeyWindow();
    const auto editor = make<Editor>();
    window->addSubview(editor);
    EXPECT_TRUE(editor->becomeFirstResponder());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(application->firstResponder(), editor);
}

TEST_F(UIWindowTest, TheRootViewFillsTheWindowAndFollowsIt) {
    const auto toast = make<UIWindow>(Rect{10, 20, 100, 50});
    const auto first = make<Controller>(journal), second = make<Controller>(journal);
    toast->setRootViewController(first);
    EXPECT_EQ(first->view()->frame(), (Rect{0, 0, 100, 50}));
    toast->setFrame({5, 5, 200, 80});
    EXPECT_EQ(first->view()->frame(), (Rect{0, 0, 200, 80}));
    EXPECT_EQ(journal.take(), "");
    toast->setHidden(false);
    EXPECT_EQ(journal.take(), "will-appear did-appear");
    toast->setRootViewController(second);
    EXPECT_EQ(journal.take(), "will-disappear did-disappear will-appear did-appear");
    EXPECT_EQ(first->view()->superview(), nullptr);
    EXPECT_EQ(second->view()->frame(), (Rect{0, 0, 200, 80}));
    toast->setHidden(true);
    EXPECT_EQ(journal.take(), "will-disappear did-disappear");
}

TEST_F(UIWindowTest, PlacesConvertThroughTheScreen) {
    const auto a = make<UIWindow>(Rect{10, 20, 100, 50}), b = make<UIWindow>(Rect{100, 0, 50, 50});
    EXPECT_EQ(a->convertPointToWindow({1, 2}, nullptr), (Point{11, 22}));
    EXPECT_EQ(a->convertPointFromWindow({11, 22}, nullptr), (Point{1, 2}));
    EXPECT_EQ(a->convertPointToWindow({1, 2}, b), (Point{-89, 22}));
    EXPECT_EQ(a->convertRectFromWindow({0, 0, 5, 5}, b), (Rect{90, -20, 5, 5}));
    b->setTransform(AffineTransform::scale(2, 2));
    EXPECT_EQ(b->convertRectToWindow({0, 0, 50, 50}, nullptr), (Rect{75, -25, 100, 100}));
    EXPECT_EQ(a->convertPointToWindow({3, 4}, a), (Point{3, 4}));
}

}  // namespace
}  // namespace zn::test
