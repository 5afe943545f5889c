#include "zarnic/platform/uikit/UITextView.h"

#include "tests/uikit/text/TextStage.h"

namespace zn::test {
namespace {

using Words = std::vector<std::string>;

class UITextViewTest : public TextStageTest {
protected:
    UITextViewTest() { view = added<UITextView>(Rect(20, 60, 200, 120)); }

    double line() { return view->caretRectForPosition(0).height(); }

    Ref<UITextView> view;
};

TEST_F(UITextViewTest, TextBeginsAtItsInsetAndWraps) {
    EXPECT_EQ(view->caretRectForPosition(0).origin, (Point{5, 8}));
    EXPECT_EQ(view->font(), nullptr);
    view->setText("a line that is wider than the view and wraps");
    EXPECT_NEAR(view->contentSize().height, 2 * line() + 16, 0.01);
    view->setFrame({20, 60, 120, 120});
    EXPECT_GT(view->contentSize().height, 3 * line());
    view->setTextContainerInset({0, 10, 0, 0});
    EXPECT_EQ(view->caretRectForPosition(0).origin, (Point{15, 0}));
    EXPECT_NEAR(view->sizeThatFits({400, 0}).height, line(), 0.01);
    // Without a width the lines are whole.
    EXPECT_GT(view->sizeThatFits({}).width, 200);
    EXPECT_NEAR(make<UITextView>()->sizeThatFits({}).height, line() + 16, 0.01);
}

TEST_F(UITextViewTest, EverythingIsToldOnceAndInOrder) {
    view->setDelegate(listener);
    for (const char* name :
         {UITextViewTextDidBeginEditingNotification, UITextViewTextDidChangeNotification,
          UITextViewTextDidEndEditingNotification})
        listener->listen(name);
    stage.tap(view);
    EXPECT_EQ(listener->take(), (Words{"begin", UITextViewTextDidBeginEditingNotification}));
    stage.pressKey(Usage::ReturnOrEnter);
    EXPECT_EQ(listener->take(), (Words{"0+0=\n", "change", UITextViewTextDidChangeNotification}));
    view->setText("code");
    EXPECT_EQ(listener->take(), Words());
    listener->refusesChange = true;
    stage.type("x");
    EXPECT_EQ(listener->take(), Words{"4+0=x"});
    EXPECT_EQ(view->text(), "code");
    view->resignFirstResponder();
    EXPECT_EQ(listener->take(), (Words{"end", UITextViewTextDidEndEditingNotification}));
}

TEST_F(UITextViewTest, TheCaretGoesUpAndDownInItsColumn) {
    view->setText("long line\nx\nlong line");
    view->becomeFirstResponder();
    view->setSelectedRange({6, 0});
    const struct {
        Usage key;
        unsigned modifiers;
        std::string result;
    } steps[] = {
        {Usage::DownArrow, 0, "long line\nx|\nlong line"},
        {Usage::DownArrow, 0, "long line\nx\nlong l|ine"},
        {Usage::DownArrow, 0, "long line\nx\nlong line|"},
        {Usage::Home, 0, "long line\nx\n|long line"},
        {Usage::UpArrow, shift, "long line\n[x\n]long line"},
        {Usage::Home, control | shift, "[long line\nx\n]long line"},
        {Usage::RightArrow, 0, "long line\nx\n|long line"},
        {Usage::PageUp, 0, "|long line\nx\nlong line"},
        {Usage::PageDown, 0, "long line\nx\nlong line|"},
        {Usage::UpArrow, 0, "long line\n|x\nlong line"},
        {Usage::Tab, 0, "long line\n\t|x\nlong line"},
    };
    for (const auto& [key, modifiers, result] : steps) {
        stage.pressKey(key, modifiers);
        EXPECT_EQ(shown(view), result);
    }
}

TEST_F(UITextViewTest, EndStaysInAWrappedLine) {
    view->setText("你好你好你好你好你好你好你好你好你好你好你好你好");
    view->becomeFirstResponder();
    view->setSelectedRange({0, 0});
    stage.pressKey(Usage::End);
    const auto end = view->selectedRange().location;
    EXPECT_NEAR(view->caretRectOnScreen().minY(), 60 + 8, 0.5);
    stage.pressKey(Usage::Home);
    EXPECT_EQ(view->selectedRange().location, 0u);
    stage.pressKey(Usage::End);
    stage.pressKey(Usage::DownArrow);
    EXPECT_GT(view->selectedRange().location, end);
}

TEST_F(UITextViewTest, FingersSelectInATextThatDoesNotScroll) {
    view->setText("one two\nthree four");
    stage.drag(placeOf(view, 4), placeOf(view, 11));
    EXPECT_EQ(shown(view), "one [two\nthr]ee four");
    stage.advance(1);
    doubleTap(view, 9);
    EXPECT_EQ(shown(view), "one two\n[three] four");
    stage.advance(1);
    doubleTap(view, 9, 3);
    EXPECT_EQ(shown(view), "one two\n[three four]");
    stage.advance(1);
    stage.tap(placeOf(view, 7));
    EXPECT_EQ(shown(view), "one two|\nthree four");
}

TEST_F(UITextViewTest, AFingerHeldDownSelectsInATextThatScrolls) {
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += "word and word\n";
    view->setText(text);
    stage.touchDown(placeOf(view, 6));
    stage.advance(0.6);
    EXPECT_EQ(view->selectedRange(), (NSRange{5, 3}));
    stage.touchMove(placeOf(view, 10));
    stage.touchUp(placeOf(view, 10));
    EXPECT_EQ(view->selectedRange(), (NSRange{5, 8}));
    EXPECT_EQ(view->contentOffset(), Point());
}

TEST_F(UITextViewTest, TheCaretStaysInSight) {
    view->becomeFirstResponder();
    const auto inside = [&] {
        return view->bounds().contains(view->caretRectForPosition(view->selectedRange().location));
    };
    for (int i = 0; i < 20; ++i) {
        stage.type("line");
        stage.pressKey(Usage::ReturnOrEnter);
        EXPECT_TRUE(inside()) << i;
    }
    EXPECT_GT(view->contentOffset().y, 100);
    stage.pressKey(Usage::Home, control);
    EXPECT_TRUE(inside());
    EXPECT_EQ(view->contentOffset().y, 0);
    view->setText("");
    EXPECT_TRUE(inside());
}

TEST_F(UITextViewTest, ATextToReadTakesNoKeys) {
    view->setEditable(false);
    stage.tap(view);
    EXPECT_FALSE(view->isFirstResponder());
    view->insertText("x");
    EXPECT_EQ(view->text(), "");
    view->setEditable(true);
    stage.tap(view);
    view->setEditable(false);
    EXPECT_FALSE(view->isEditing());
}

TEST_F(UITextViewTest, ALongTextIsEditedWithoutMuchAdo) {
    // Would take minutes if each step cost as much as the whole text.
    std::string text;
    while (text.size() < 200'000)
        text += "A paragraph of some length, as people write them.\n";
    view->setText(text);
    view->becomeFirstResponder();
    for (int i = 0; i < 500; ++i) {
        stage.type("x");
        stage.pressKey(Usage::UpArrow);
    }
    EXPECT_EQ(view->text().size(), text.size() + 500);
    EXPECT_EQ(view->selectedRange().length, 0u);
}

TEST_F(UITextViewTest, WhatIsShownIsWhatAFreshViewShows) {
    view->setText("one\ntwo\nthree");
    view->becomeFirstResponder();
    view->setSelectedRange({5, 0});
    stage.type(" and more that wraps the line");
    stage.pressKey(Usage::DeleteOrBackspace, control);
    stage.pressKey(Usage::ReturnOrEnter);
    const std::string text = view->text();
    view->resignFirstResponder();
    const auto edited = UIImagePNGRepresentation(stage.snapshot());
    view->removeFromSuperview();
    view = added<UITextView>(Rect(20, 60, 200, 120));
    view->setText(text);
    EXPECT_EQ(edited, UIImagePNGRepresentation(stage.snapshot()));
}

}  // namespace
}  // namespace zn::test
