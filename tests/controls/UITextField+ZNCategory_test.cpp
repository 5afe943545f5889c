#include "zarnic/UITextField+ZNCategory.h"

#include <gtest/gtest.h>

#include "zarnic/UIScrollView+ZNCategory.h"
#include "zarnic/platform/drawing/UIFont.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/testing/Stage.h"

namespace zn {
namespace {

TEST(TextFieldFactory, TakesEachValueOnlyWhenItIsOfItsKind) {
    const Stage stage;
    const Rect frame(1, 2, 30, 40);
    const auto font = UIFont::systemFontOfSize(9);
    const auto all =
        ZN_TextFieldColor(UIColor::redColor(), "Name", font, UIColor::blueColor(), frame);
    EXPECT_EQ(all->frame(), frame);
    EXPECT_TRUE(all->backgroundColor()->isEqual(*UIColor::redColor()));
    EXPECT_EQ(all->placeholder(), "Name");
    EXPECT_EQ(all->font(), font);
    EXPECT_TRUE(all->textColor()->isEqual(*UIColor::blueColor()));
    const auto none = ZN_TextFieldColor("red", 5, 12, font, frame);
    EXPECT_EQ(none->backgroundColor(), nullptr);
    EXPECT_EQ(none->placeholder(), "");
    EXPECT_EQ(none->font()->pointSize(), 17);
    EXPECT_TRUE(none->textColor()->isEqual(*UIColor::blackColor()));
}

TEST(TextFieldPlaceholder, FontAndColourWorkInAnyOrder) {
    const Stage stage;
    const auto font = UIFont::systemFontOfSize(11);
    const auto early = make<UITextField>();
    zn_SetPlaceholderTextFont(early, font);
    zn_SetPlacehodlerTextColor(early, UIColor::redColor());
    early->setPlaceholder("Name");
    const auto late = make<UITextField>();
    late->setPlaceholder("Name");
    zn_SetPlaceholderTextFont(late, font);
    zn_SetPlacehodlerTextColor(late, UIColor::redColor());
    for (const auto& field : {early, late}) {
        EXPECT_EQ(field->placeholder(), "Name");
        EXPECT_EQ(field->placeholderLabel()->font(), font);
        EXPECT_TRUE(field->placeholderLabel()->textColor()->isEqual(*UIColor::redColor()));
    }
    zn_SetPlaceholderTextFont(nullptr, font);
    zn_SetPlacehodlerTextColor(nullptr, nullptr);
}

TEST(ScrollViewFactory, MakesOneThatShowsNoIndicatorsAndDoesNotBounce) {
    const Stage stage;
    const auto view = ZN_ScrollViewWithColor(UIColor::redColor(), {1, 2, 3, 4});
    EXPECT_EQ(view->frame(), Rect(1, 2, 3, 4));
    EXPECT_TRUE(view->backgroundColor()->isEqual(*UIColor::redColor()));
    EXPECT_FALSE(view->showsHorizontalScrollIndicator());
    EXPECT_FALSE(view->showsVerticalScrollIndicator());
    EXPECT_FALSE(view->bounces());
}

}  // namespace
}  // namespace zn
