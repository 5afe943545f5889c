#include "zarnic/UIViewController+ZNCategory.h"

#include <gtest/gtest.h>

#include "zarnic/platform/drawing/NSTextAttributes.h"
#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UINavigationController.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

TEST(UIViewControllerCategory, ParametersAreAnyValueAndKeptByTheirOwner) {
    const Stage stage;
    const auto screen = make<UIViewController>();
    EXPECT_TRUE(zn_Parameters(screen).absent());
    const Dictionary shared;
    setZn_Parameters(screen, shared);
    EXPECT_TRUE(zn_Parameters(screen).dictionary().identical(shared)) << "not copied";
    WeakRef<UIView> weak;
    {
        const auto view = make<UIView>();
        weak = view;
        setZn_Parameters(screen, view);
    }
    EXPECT_FALSE(weak.expired());
    EXPECT_TRUE(zn_Parameters(make<UIViewController>()).absent());
    setZn_Parameters(screen, {});
    EXPECT_TRUE(weak.expired());
    setZn_Parameters(nullptr, 5);
    EXPECT_TRUE(zn_Parameters(nullptr).absent());
}

TEST(UIViewControllerCategory, ItemsAreWrappedAndStrangersLeftOut) {
    const Stage stage;
    const auto screen = make<UIViewController>();
    const auto button = UIButton::buttonWithType(UIButtonType::System);
    const auto item = make<UIBarButtonItem>("Edit", UIBarButtonItemStyle::Plain, Action());
    const Value items = Array{button, item, "a text", 5, Value::null(), make<UIViewController>()};
    zn_SetNavigationLeftItems(screen, items);
    zn_SetNavigationRightItems(screen, items);
    for (const auto& side : {screen->navigationItem()->leftBarButtonItems(),
                             screen->navigationItem()->rightBarButtonItems()}) {
        ASSERT_EQ(side.size(), 2u);
        EXPECT_EQ(side[0]->customView(), button);
        EXPECT_EQ(side[1], item);
    }
    for (const Value& nothing : {Value(), Value(Array()), Value(Array{"a text"}), Value("text")}) {
        zn_SetNavigationLeftItems(screen, items);
        zn_SetNavigationLeftItems(screen, nothing);
        EXPECT_TRUE(screen->navigationItem()->leftBarButtonItems().empty());
    }
    zn_SetNavigationLeftItems(nullptr, items);
    zn_SetNavigationRightItems(nullptr, items);
}

TEST(UIViewControllerCategory, TitleAttributesAreTheBarsAndMerged) {
    const Stage stage;
    const auto first = make<UIViewController>();
    const auto second = make<UIViewController>();
    const auto font = UIFont::systemFontOfSize(12);
    const auto color = UIColor::redColor();
    zn_SetNavigationTitleTextFont(first, font);
    zn_SetNavigationTitleTextColor(nullptr, color);
    zn_SetNavigationTitleText(nullptr, "nobody");
    const auto navigation = make<UINavigationController>(first);
    const auto attributes = [&] { return navigation->navigationBar()->titleTextAttributes(); };
    EXPECT_TRUE(attributes().empty()) << "there was no bar yet";
    navigation->pushViewController(second, false);
    zn_SetNavigationTitleTextFont(second, font);
    zn_SetNavigationTitleTextColor(first, color);
    EXPECT_EQ(attributes()[NSFontAttributeName], Value(font));
    EXPECT_EQ(attributes()[NSForegroundColorAttributeName], Value(color));
    zn_SetNavigationTitleTextColor(first, nullptr);
    EXPECT_EQ(attributes().count(), 1u);
    navigation->popViewControllerAnimated(false);
    EXPECT_EQ(attributes().count(), 1u) << "popping restores nothing";
    first->setTitle("Screen");
    zn_SetNavigationTitleText(first, "Bar");
    EXPECT_EQ(first->navigationItem()->title(), "Bar");
    EXPECT_EQ(first->title(), "Screen");
}

}  // namespace
}  // namespace zn
