#include "zarnic/UITextView+ZNCategory.h"

#include "tests/uikit/text/TextStage.h"

namespace zn::test {
namespace {

/// Where what the platform would call a pointer's value is one key and an equal text another.
class TextViewPlaceholderTest : public TextStageTest {
protected:
    TextViewPlaceholderTest() { view = added<UITextView>(Rect(20, 60, 200, 120)); }
    Ref<UITextView> view;
};

TEST_F(TextViewPlaceholderTest, ShowsAGreyLabelWhereTheTextBeginsUntilThereIsText) {
    EXPECT_EQ(zn_placeholerLabel(view), nullptr);
    EXPECT_EQ(zn_placeholder(view), std::nullopt);
    setZn_placeholder(view, "Write");
    const auto label = zn_placeholerLabel(view);
    EXPECT_EQ(zn_placeholder(view), "Write");
    EXPECT_EQ(label->text(), "Write");
    EXPECT_EQ(label->frame(), Rect({5, 8}, label->sizeThatFits({})));
    EXPECT_EQ(label->font()->pointSize(), 15);
    EXPECT_TRUE(label->textColor()->isEqual(*UIColor::lightGrayColor()));
    EXPECT_EQ(view->subviews().front(), label);
    EXPECT_FALSE(label->hidden());
    view->becomeFirstResponder();
    stage.type("x");
    EXPECT_TRUE(label->hidden());
    stage.pressKey(Usage::DeleteOrBackspace);
    EXPECT_FALSE(label->hidden());
    setZn_placeholder(view, "Write something");
    EXPECT_EQ(zn_placeholerLabel(view), label);
    EXPECT_EQ(label->bounds().size, label->sizeThatFits({}));
}

TEST_F(TextViewPlaceholderTest, TextFromCodeIsNoticedOnlyWhenAskedFor) {
    setZn_placeholder(view, "Write");
    const auto label = zn_placeholerLabel(view);
    view->setText("code");
    EXPECT_FALSE(label->hidden());
    zn_updatePlaceholderShowStatus(view);
    EXPECT_TRUE(label->hidden());
    // Any text view's change makes each look again.
    view->setText("");
    const auto other = added<UITextView>(Rect(20, 200, 200, 50));
    other->becomeFirstResponder();
    stage.type("x");
    EXPECT_FALSE(label->hidden());
    setZn_placeholder(other, "late");
    EXPECT_TRUE(zn_placeholerLabel(other)->hidden());
}

TEST_F(TextViewPlaceholderTest, FontColourAndBoundsWorkBeforeTheTextToo) {
    zn_setPlaceholderFont(view, UIFont::systemFontOfSize(24));
    zn_setPlaceholderColor(view, UIColor::redColor());
    setZn_placeholder(view, "Write");
    const auto label = zn_placeholerLabel(view);
    EXPECT_EQ(label->font()->pointSize(), 24);
    EXPECT_TRUE(label->textColor()->isEqual(*UIColor::redColor()));
    EXPECT_EQ(label->frame(), Rect({5, 8}, label->sizeThatFits({})));
    zn_setPlaceholderFont(view, UIFont::systemFontOfSize(12));
    EXPECT_EQ(label->frame(), Rect({5, 8}, label->sizeThatFits({})));
    // The bounds, not the frame: the centre stays.
    const Point centre = label->center();
    zn_updatePlaceholderBounds(view, {0, 0, 100, 40});
    EXPECT_EQ(label->bounds(), Rect(0, 0, 100, 40));
    EXPECT_EQ(label->center(), centre);
}

TEST_F(TextViewPlaceholderTest, AnEmptyPlaceholderIsLeftAsItIs) {
    setZn_placeholder(view, "Write");
    view->becomeFirstResponder();
    setZn_placeholder(view, std::nullopt);
    const auto label = zn_placeholerLabel(view);
    EXPECT_EQ(zn_placeholder(view), std::nullopt);
    EXPECT_EQ(label->text(), "");
    stage.type("x");
    EXPECT_FALSE(label->hidden());
}

TEST_F(TextViewPlaceholderTest, ValuesAreKeptUnderTheAddressesOfTheNames) {
    setZn_placeholder(view, "Write");
    EXPECT_EQ(std::string(placeholderName), "ZN_UITextView_Placeholder");
    EXPECT_EQ(std::string(placeholderLabelName), "ZN_UITextView_PlaceholderLabel");
    EXPECT_EQ(view->associatedValue(placeholderName).stringValue(), "Write");
    EXPECT_TRUE(view->associatedValue(placeholderLabelName).isObject());
    const std::string sameText = placeholderName;
    EXPECT_TRUE(view->associatedValue(sameText.c_str()).absent());
}

TEST_F(TextViewPlaceholderTest, AViewThatIsGoneHearsNothing) {
    auto gone = make<UITextView>(Rect(0, 0, 10, 10));
    setZn_placeholder(gone, "x");
    const WeakRef<UITextView> weak = gone;
    gone = nullptr;
    EXPECT_TRUE(weak.expired());
    view->becomeFirstResponder();
    stage.type("x");
}

TEST(TextViewFactory, TakesEachValueOnlyWhenItIsOfItsKind) {
    const Stage stage;
    const Rect frame(1, 2, 30, 40);
    const auto font = UIFont::systemFontOfSize(9);
    const auto all = ZN_TextViewColor(UIColor::redColor(), font, UIColor::blueColor(), frame);
    EXPECT_EQ(all->frame(), frame);
    EXPECT_TRUE(all->backgroundColor()->isEqual(*UIColor::redColor()));
    EXPECT_EQ(all->font(), font);
    EXPECT_TRUE(all->textColor()->isEqual(*UIColor::blueColor()));
    const auto none = ZN_TextViewColor("red", UIColor::redColor(), font, frame);
    EXPECT_EQ(none->backgroundColor(), nullptr);
    EXPECT_EQ(none->font(), nullptr);
    EXPECT_EQ(none->textColor(), nullptr);
    EXPECT_EQ(ZN_TextViewColor({}, {}, {}, frame)->backgroundColor(), nullptr);
}

TEST(TextViewPlaceholder, AnAbsentViewGivesNothing) {
    const Stage stage;
    setZn_placeholder(nullptr, "x");
    zn_setPlaceholderFont(nullptr, nullptr);
    zn_setPlaceholderColor(nullptr, nullptr);
    zn_updatePlaceholderBounds(nullptr, {});
    zn_updatePlaceholderShowStatus(nullptr);
    EXPECT_EQ(zn_placeholder(nullptr), std::nullopt);
    EXPECT_EQ(zn_placeholerLabel(nullptr), nullptr);
}

}  // namespace
}  // namespace zn::test
