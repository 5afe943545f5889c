#include "zarnic/ZNControllerHelper.h"

#include <gtest/gtest.h>

#include "zarnic/UIViewController+ZNCategory.h"
#include "zarnic/ZNNavigationController.h"
#include "zarnic/platform/foundation/NSURL.h"
#include "zarnic/platform/uikit/UITabBarController.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

/// Nobody makes one before its name is used.
class Detail : public UIViewController {
    ZN_OBJECT(Detail, UIViewController)
};
ZN_REGISTER_CLASS(Detail);

class Needy : public UIViewController {
    ZN_OBJECT(Needy, UIViewController)
public:
    explicit Needy(int) {}
};
ZN_REGISTER_CLASS(Needy);

TEST(DictionaryFromQuery, TakesTheTextAsItStands) {
    struct Case {
        const char* query;
        Dictionary pairs;
    };
    const Case cases[] = {
        {"", {}},
        {"a=1&b=2;c=3", {{"a", "1"}, {"b", "2"}, {"c", "3"}}},
        {"a=1&&b", {{"a", "1"}}},
        {"x=1=2", {}},
        {"k=%20", {{"k", "%20"}}},
        {" a = 1 & b\n=2\t", {{" a ", " 1 "}, {" b\n", "2\t"}}},
        {"&;a=1;&", {{"a", "1"}}},
        {"a=1&a=2", {{"a", "2"}}},
        {"=b&a=", {{"", "b"}, {"a", ""}}},
        {"==&=", {{"", ""}}},
        {"键=值&e=é", {{"键", "值"}, {"e", "é"}}},
        {"   ", {}},
    };
    for (const Case& each : cases) {
        const Dictionary pairs = ZNControllerHelper::DictionaryFromQuery(each.query);
        EXPECT_EQ(Value(pairs), Value(each.pairs)) << each.query;
        EXPECT_FALSE(pairs.isMutable());
    }
    EXPECT_TRUE(ZNControllerHelper::DictionaryFromQuery({}).empty());
}

class ControllerHelperTest : public ::testing::Test {
protected:
    ControllerHelperTest() {
        ZNControllerHelper::RegisterRootNavigationController(root);
        stage.show(root);
    }
    Ref<UIViewController> top() { return root->topViewController(); }
    bool opened(std::size_t depth = 2) {
        return root->viewControllers().size() == depth && as<Detail>(top()) != nullptr;
    }
    static Value url(const char* text) { return NSURL::URLWithString(text); }

    Stage stage;
    Ref<UIViewController> home = make<UIViewController>();
    Ref<UINavigationController> root = make<ZNNavigationController>(home);
};

TEST_F(ControllerHelperTest, OpensByNameURLClassAndInstance) {
    const Value parameters = Dictionary{{"id", 5}};
    const Value targets[] = {
        "Detail",         url("/Detail"),         url("app:///Detail.page?id=7"),
        url("/De/tail/"), url("/De%74ail;x=1?q"), make<Detail>()};
    for (const Value& target : targets) {
        ZNControllerHelper::PushViewController(target, parameters, false);
        EXPECT_TRUE(opened()) << target.description();
        EXPECT_EQ(zn_Parameters(top()), parameters) << "the query is ignored";
        EXPECT_TRUE(top()->hidesBottomBarWhenPushed());
        EXPECT_TRUE(as<Detail>(ZNControllerHelper::PopViewControllerAnimated(false)));
    }
    ZNControllerHelper::PushViewController(Detail::staticClass(), parameters, false);
    EXPECT_TRUE(opened());
    EXPECT_EQ(zn_Parameters(top()), parameters);
    ZNControllerHelper::PushViewController(Detail::staticClass(), false);
    EXPECT_TRUE(opened(3));
    EXPECT_TRUE(zn_Parameters(top()).absent());
    EXPECT_EQ(ZNControllerHelper::PopViewControllerAnimated(false) != nullptr, true);
}

TEST_F(ControllerHelperTest, WithoutParametersAURLGivesItsQuery) {
    ZNControllerHelper::PushViewController(url("/Detail?id=7&name=%C3%A9"), false);
    EXPECT_EQ(zn_Parameters(top()), Value(Dictionary{{"id", "7"}, {"name", "%C3%A9"}}));
    ZNControllerHelper::PushViewController(url("/Detail"), false);
    EXPECT_EQ(zn_Parameters(top()), Value(Dictionary())) << "no query, no pairs";
    ZNControllerHelper::PushViewController(url("/Detail?id=7"), Value::null(), false);
    EXPECT_TRUE(zn_Parameters(top()).isNull()) << "null is something";
    // An instance loses what it had.
    const auto screen = make<Detail>();
    setZn_Parameters(screen, 5);
    ZNControllerHelper::PushViewController(screen, false);
    EXPECT_TRUE(zn_Parameters(top()).absent());
}

TEST_F(ControllerHelperTest, WhatCannotBeOpenedIsPassedOver) {
    const auto onStack = make<Detail>();
    root->pushViewController(onStack, false);
    stage.takeLog();
    const Value targets[] = {Value(),
                             "",
                             "Nobody",
                             "NSObject",
                             "Needy",
                             url("app://Detail?id=7"),
                             url("app:Detail"),
                             url(""),
                             url("/a/Detail"),
                             url("/.Detail"),
                             5,
                             Value::null(),
                             make<UIView>(),
                             Dictionary(),
                             onStack,
                             home,
                             root,
                             make<UITabBarController>()};
    for (const Value& target : targets) {
        ZNControllerHelper::PushViewController(target, 1, true);
        EXPECT_EQ(top(), onStack) << target.description();
    }
    for (const Class* target : {&NSObject::staticClass(), &Needy::staticClass()})
        ZNControllerHelper::PushViewController(*target, true);
    EXPECT_EQ(root->viewControllers().size(), 2u);
    EXPECT_TRUE(stage.takeLog().empty());
}

TEST_F(ControllerHelperTest, WithoutARootNothingHappens) {
    ZNControllerHelper::RegisterRootNavigationController(nullptr);
    EXPECT_EQ(ZNControllerHelper::RootNavigationController(), nullptr);
    int calls = 0;
    const auto count = [&calls] { ++calls; };
    ZNControllerHelper::PushViewController("Detail", true);
    ZNControllerHelper::PresentViewController(Detail::staticClass(), true, count);
    ZNControllerHelper::DismissViewControllerAnimated(true, count);
    EXPECT_EQ(ZNControllerHelper::PopViewControllerAnimated(true), nullptr);
    ZNControllerHelper::PushViewControllerForRootTransition("Detail", {});
    ZNControllerHelper::PopViewControllerForRootTransition({});
    ZNControllerHelper::SetAnchorViewController(home);
    ZNControllerHelper::PopToAnchorViewController(true);
    EXPECT_EQ(ZNControllerHelper::AnchorViewController(), nullptr);
    stage.advance(1);
    EXPECT_EQ(calls, 0);
    ZNControllerHelper::PopViewControllerForRootTransition(count);
    EXPECT_EQ(calls, 1) << "the block is the caller's own";
    ZNControllerHelper::RegisterLoginNavigationController(root);
    EXPECT_EQ(ZNControllerHelper::LoginNavigationController(), root);
}

TEST_F(ControllerHelperTest, PresentsAndDismisses) {
    int calls = 0;
    const auto count = [&calls] { ++calls; };
    ZNControllerHelper::PresentViewController(url("/Detail?id=7"), true, count);
    stage.advance(1);
    const auto screen = root->presentedViewController();
    ASSERT_TRUE(as<Detail>(screen));
    EXPECT_TRUE(screen->hidesBottomBarWhenPushed());
    EXPECT_EQ(zn_Parameters(screen), Value(Dictionary{{"id", "7"}}));
    ZNControllerHelper::PresentViewController("Detail", 5, false, count);
    EXPECT_EQ(root->presentedViewController(), screen) << "one at a time";
    ZNControllerHelper::DismissViewControllerAnimated(true, count);
    stage.advance(1);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(root->presentedViewController(), nullptr);
    ZNControllerHelper::DismissViewControllerAnimated(true, count);
    stage.advance(1);
    EXPECT_EQ(calls, 2);
}

TEST_F(ControllerHelperTest, TheAnchorIsUsedOnce) {
    for (int screens = 0; screens < 3; ++screens)
        ZNControllerHelper::PushViewController("Detail", false);
    const auto anchor = root->viewControllers()[1];
    ZNControllerHelper::SetAnchorViewController(anchor);
    EXPECT_EQ(ZNControllerHelper::AnchorViewController(), anchor);
    ZNControllerHelper::PopToAnchorViewController(false);
    EXPECT_EQ(top(), anchor);
    EXPECT_EQ(ZNControllerHelper::AnchorViewController(), nullptr);
    ZNControllerHelper::PopToAnchorViewController(false);
    EXPECT_EQ(top(), anchor);
    // One that was popped before is forgotten, too, and held by nobody.
    ZNControllerHelper::SetAnchorViewController(anchor);
    root->popToRootViewControllerAnimated(false);
    ZNControllerHelper::PopToAnchorViewController(false);
    EXPECT_EQ(top(), home);
    EXPECT_EQ(ZNControllerHelper::AnchorViewController(), nullptr);
    ZNControllerHelper::SetAnchorViewController(make<Detail>());
    EXPECT_EQ(ZNControllerHelper::AnchorViewController(), nullptr);
}

TEST_F(ControllerHelperTest, RootTransitionsComeFromBelowAndGoDown) {
    home->view()->setBackgroundColor(UIColor::redColor());
    const auto screen = make<Detail>();
    screen->view()->setBackgroundColor(UIColor::blueColor());
    stage.settle();
    const auto isOld = [this](double y) {
        const Ref<CGImage> picture = stage.snapshot()->cgImage();
        const auto row = static_cast<std::size_t>(2 * y);
        return (picture->pixels()[row * picture->width() + 20] >> 16 & 0xFF) > 128;
    };
    ZNControllerHelper::PushViewControllerForRootTransition(screen, {});
    EXPECT_EQ(top(), screen) << "at once, though it is not seen yet";
    stage.settle();
    EXPECT_TRUE(isOld(100) && isOld(650)) << "begins with the old content";
    stage.advance(0.15);
    EXPECT_TRUE(isOld(100));
    EXPECT_FALSE(isOld(600)) << "half-way, from below";
    stage.advance(0.2);
    EXPECT_FALSE(isOld(100) || isOld(650));

    ZNControllerHelper::PopViewControllerForRootTransition(
        [this] { root->popToRootViewControllerAnimated(false); });
    stage.settle();
    EXPECT_FALSE(isOld(100) || isOld(650));
    stage.advance(0.15);
    EXPECT_TRUE(isOld(100)) << "revealed from above";
    EXPECT_FALSE(isOld(600));
    stage.advance(0.2);
    EXPECT_TRUE(isOld(100) && isOld(650));
    ZNControllerHelper::PushViewController("Detail", false);
    ZNControllerHelper::PopViewControllerForRootTransition({});
    EXPECT_EQ(top(), home);
}

}  // namespace
}  // namespace zn
