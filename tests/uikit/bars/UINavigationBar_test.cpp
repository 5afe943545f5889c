#include "zarnic/platform/uikit/UINavigationBar.h"

#include "tests/uikit/controllers/NavigationFixture.h"
#include "zarnic/platform/drawing/NSTextAttributes.h"

namespace zn {
namespace {

class Hand : public NSObject {
    ZN_OBJECT(Hand, NSObject)
public:
    void tapped(const Ref<UIBarButtonItem>& item) { tappedItem = item; }
    Ref<UIBarButtonItem> tappedItem;
};

class NavigationBarTest : public NavigationTest {
protected:
    static Ref<UILabel> titleIn(const Ref<UIView>& view, std::string_view text) {
        if (const auto label = as<UILabel>(view); label && label->text() == text)
            return label;
        for (const auto& each : view->subviews())
            if (auto found = titleIn(each, text))
                return found;
        return nullptr;
    }
    Ref<UILabel> title(std::string_view text) { return titleIn(navigation->navigationBar(), text); }
};

TEST_F(NavigationBarTest, AttributesBelongToTheBar) {
    a->setTitle("First");
    b->setTitle("Second");
    showOnScreen();
    const Ref<UINavigationBar>& bar = navigation->navigationBar();
    Dictionary attributes{{NSForegroundColorAttributeName, UIColor::redColor()},
                          {NSFontAttributeName, UIFont::systemFontOfSize(30)}};
    bar->setTitleTextAttributes(attributes);
    attributes.removeAll();
    EXPECT_EQ(bar->titleTextAttributes().count(), 2u) << "copied";
    EXPECT_FALSE(bar->titleTextAttributes().isMutable());
    navigation->pushViewController(b, false);
    EXPECT_EQ(title("Second")->font()->description(), UIFont::systemFontOfSize(30)->description());
    EXPECT_TRUE(title("Second")->textColor()->isEqual(*UIColor::redColor()));
    bar->setTitleTextAttributes(
        Dictionary{{NSFontAttributeName, "big"}, {NSForegroundColorAttributeName, 7}});
    EXPECT_TRUE(title("Second")->textColor()->isEqual(*UIColor::blackColor()))
        << "values of another kind are none";
}

TEST_F(NavigationBarTest, ItemsStandAtTheirSidesAndSendTheirActions) {
    a->setTitle("First");
    showOnScreen();
    const auto hand = make<Hand>();
    const auto item = [&](const char* name) {
        return make<UIBarButtonItem>(name, UIBarButtonItemStyle::Plain, ZN_ACTION(hand, tapped));
    };
    const auto edit = item("Edit"), first = item("1"), second = item("2");
    const auto custom = make<UIView>(Rect(0, 0, 40, 20));
    a->navigationItem()->setLeftBarButtonItems({edit, make<UIBarButtonItem>(custom), nullptr});
    a->navigationItem()->setRightBarButtonItems({first, second});
    stage.settle();
    EXPECT_EQ(a->navigationItem()->leftBarButtonItems().size(), 2u);
    const auto x = [&](const char* text) {
        const auto label = title(text);
        return label->convertRectToView(label->bounds(), nullptr).midX();
    };
    EXPECT_LT(x("Edit"), custom->convertRectToView(custom->bounds(), nullptr).midX());
    EXPECT_EQ(custom->bounds().size, Size(40, 20));
    EXPECT_GT(x("1"), x("2"));
    EXPECT_GT(x("1"), 340);
    EXPECT_NEAR(x("First"), 375.0 / 2, 1);
    stage.tap(Point{x("2"), 42});
    EXPECT_EQ(hand->tappedItem, second);
    first->setEnabled(false);
    stage.tap(Point{x("1"), 42});
    EXPECT_EQ(hand->tappedItem, second) << "the other one is disabled";
    first->setEnabled(true);
    first->setTitle("Done");
    stage.settle();
    stage.tap(Point{x("Done"), 42});
    EXPECT_EQ(hand->tappedItem, first);
    a->navigationItem()->setRightBarButtonItem(nullptr);
    stage.settle();
    EXPECT_EQ(title("Done"), nullptr);
}

TEST_F(NavigationBarTest, LeftItemsTakeThePlaceOfTheBackButtonUnlessTheySupplementIt) {
    a->setTitle("First");
    showOnScreen();
    b->navigationItem()->setLeftBarButtonItem(
        make<UIBarButtonItem>("Menu", UIBarButtonItemStyle::Done, Action()));
    navigation->pushViewController(b, false);
    EXPECT_EQ(title("First"), nullptr);
    b->navigationItem()->setLeftItemsSupplementBackButton(true);
    EXPECT_NE(title("First"), nullptr);
    EXPECT_NE(title("Menu"), nullptr);
}

TEST_F(NavigationBarTest, TheTitleMayChangeWhileItMoves) {
    a->setTitle("First");
    showOnScreen();
    navigation->pushViewController(b, true);
    stage.advance(0.1);
    b->setTitle("Late");
    ASSERT_TRUE(title("First") && title("Late")) << "old and new are seen";
    stage.advance(1);
    EXPECT_EQ(title("Late")->superview()->superview(), navigation->navigationBar());
    EXPECT_EQ(title("Late")->superview()->alpha(), 1);
}

}  // namespace
}  // namespace zn
