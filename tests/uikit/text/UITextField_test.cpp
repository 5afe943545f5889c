#include "zarnic/platform/uikit/UITextField.h"

#include "tests/uikit/text/TextStage.h"
#include "zarnic/platform/uikit/UIButton.h"
#include "zarnic/platform/uikit/UILabel.h"
#include "zarnic/platform/uikit/UIPasteboard.h"

namespace zn::test {
namespace {

using Words = std::vector<std::string>;

class UITextFieldTest : public TextStageTest {
protected:
    UITextFieldTest() { field = added<UITextField>(Rect(20, 100, 200, 34)); }

    Ref<UIButton> clearButton() {
        for (const auto& each : field->subviews())
            if (const auto button = as<UIButton>(each))
                return button;
        return nullptr;
    }

    Ref<UITextField> field;
};

TEST_F(UITextFieldTest, ATapBeginsEditingMakesTheWindowKeyAndTypesWhereItHit) {
    field->setText("hello");
    const auto other = stage.show(make<UIViewController>());
    other->setFrame({0, 300, 10, 10});
    EXPECT_FALSE(window->isKeyWindow());
    stage.tap(placeOf(field, 2));
    EXPECT_TRUE(field->isFirstResponder());
    EXPECT_TRUE(window->isKeyWindow());
    stage.type("é你👍🏽");
    EXPECT_EQ(shown(field), "heé你👍🏽|llo");
    // Keys go to the key window only.
    other->makeKeyWindow();
    stage.type("lost");
    EXPECT_EQ(field->text(), "heé你👍🏽llo");
}

TEST_F(UITextFieldTest, EverythingIsToldOnceAndInOrder) {
    field->setDelegate(listener);
    field->addTarget(ZN_ACTION(listener, began), UIControlEvents::EditingDidBegin);
    field->addTarget(ZN_ACTION(listener, changed), UIControlEvents::EditingChanged);
    field->addTarget(ZN_ACTION(listener, ended), UIControlEvents::EditingDidEnd);
    for (const char* name :
         {UITextFieldTextDidBeginEditingNotification, UITextFieldTextDidChangeNotification,
          UITextFieldTextDidEndEditingNotification})
        listener->listen(name);
    EXPECT_TRUE(field->becomeFirstResponder());
    EXPECT_TRUE(field->becomeFirstResponder());
    EXPECT_EQ(listener->take(),
              (Words{"begin", "event begin", UITextFieldTextDidBeginEditingNotification}));
    stage.type("a");
    EXPECT_EQ(listener->take(),
              (Words{"0+0=a", "event change", UITextFieldTextDidChangeNotification}));
    stage.pressKey(Usage::DeleteOrBackspace);
    EXPECT_EQ(listener->take(),
              (Words{"0+1=", "event change", UITextFieldTextDidChangeNotification}));
    // Nothing to delete, and text from code, are no changes of the user's.
    stage.pressKey(Usage::DeleteOrBackspace);
    field->setText("code");
    EXPECT_EQ(listener->take(), Words());
    EXPECT_TRUE(field->resignFirstResponder());
    EXPECT_TRUE(field->resignFirstResponder());
    EXPECT_EQ(listener->take(),
              (Words{"end", "event end", UITextFieldTextDidEndEditingNotification}));
}

TEST_F(UITextFieldTest, TheDelegateMayRefuse) {
    field->setDelegate(listener);
    listener->refusesBegin = true;
    stage.tap(field);
    EXPECT_FALSE(field->isFirstResponder());
    listener->refusesBegin = false;
    stage.tap(field);
    listener->refusesChange = true;
    stage.type("x");
    EXPECT_EQ(field->text(), "");
    listener->refusesEnd = true;
    EXPECT_FALSE(field->resignFirstResponder());
    EXPECT_TRUE(field->isEditing());
    listener->take();
    // Asked by force it ends, told as ever.
    EXPECT_TRUE(window->endEditing(true));
    EXPECT_FALSE(field->isEditing());
    EXPECT_EQ(listener->take(), Words{"end"});
}

TEST_F(UITextFieldTest, TheReturnKeyEndsEditingWhenSomebodyWaitsForIt) {
    field->setDelegate(listener);
    field->becomeFirstResponder();
    stage.pressKey(Usage::ReturnOrEnter);
    EXPECT_TRUE(field->isFirstResponder());
    field->addTarget(ZN_ACTION(listener, exited), UIControlEvents::EditingDidEndOnExit);
    listener->refusesReturn = true;
    stage.type("\n");
    EXPECT_TRUE(field->isFirstResponder());
    listener->refusesReturn = false;
    listener->take();
    stage.pressKey(Usage::KeypadEnter);
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(listener->take(), (Words{"return", "event exit", "end"}));
    EXPECT_EQ(field->text(), "");
}

TEST_F(UITextFieldTest, KeysMoveSelectAndDelete) {
    const struct {
        std::size_t start;
        Usage key;
        unsigned modifiers;
        std::string result;
    } cases[] = {
        {4, Usage::LeftArrow, 0, "one| two"},
        {3, Usage::RightArrow, control, "one two|"},
        {3, Usage::LeftArrow, control, "|one two"},
        {3, Usage::LeftArrow, shift, "on[e] two"},
        {4, Usage::RightArrow, shift | control, "one [two]"},
        {3, Usage::Home, 0, "|one two"},
        {3, Usage::End, shift, "one[ two]"},
        {3, Usage::UpArrow, 0, "|one two"},
        {3, Usage::DownArrow, 0, "one two|"},
        {7, Usage::DeleteOrBackspace, control, "one |"},
        {0, Usage::DeleteForward, 0, "|ne two"},
        {0, Usage::DeleteForward, control, "| two"},
        {7, Usage::DeleteForward, 0, "one two|"},
        {0, Usage::DeleteOrBackspace, 0, "|one two"},
    };
    field->becomeFirstResponder();
    for (const auto& [start, key, modifiers, result] : cases) {
        field->setText("one two");
        field->setSelectedRange({start, 0});
        stage.pressKey(key, modifiers);
        EXPECT_EQ(shown(field), result);
    }
    // In a line that is read from right to left, left is forward.
    field->setText("שלום");
    field->setSelectedRange({0, 0});
    stage.pressKey(Usage::LeftArrow);
    EXPECT_EQ(field->selectedRange(), (NSRange{2, 0}));
    // Nobody takes these.
    EXPECT_FALSE(UIApplication::sharedApplication()->pressKey({Usage::Tab, 0, {}}));
    EXPECT_FALSE(UIApplication::sharedApplication()->pressKey({Usage::Escape, 0, {}}));
}

TEST_F(UITextFieldTest, ShortcutsCutCopyPasteAndUndo) {
    field->becomeFirstResponder();
    stage.type("one two");
    stage.pressShortcut("a");
    EXPECT_EQ(shown(field), "[one two]");
    stage.pressShortcut("x");
    EXPECT_EQ(shown(field), "|");
    EXPECT_EQ(UIPasteboard::generalPasteboard()->string(), "one two");
    stage.pressShortcut("v");
    stage.pressShortcut("v", UIKeyModifierFlags::Command);
    EXPECT_EQ(shown(field), "one twoone two|");
    stage.pressShortcut("z");
    EXPECT_EQ(shown(field), "one two|");
    stage.pressShortcut("z");
    stage.pressShortcut("z");
    EXPECT_EQ(shown(field), "[one two]");
    stage.pressShortcut("z", control | shift);
    EXPECT_EQ(shown(field), "|");
    stage.pressShortcut("y");
    EXPECT_EQ(shown(field), "one two|");
    // A line takes no line ends.
    UIPasteboard::generalPasteboard()->setString("a\r\nb\nc");
    stage.pressShortcut("a");
    stage.pressShortcut("v");
    EXPECT_EQ(field->text(), "a  b c");
    // Nothing selected: what was copied stays.
    stage.pressShortcut("c");
    EXPECT_EQ(UIPasteboard::generalPasteboard()->string(), "a\r\nb\nc");
}

TEST_F(UITextFieldTest, FingersSelect) {
    field->setText("one two three");
    stage.drag(placeOf(field, 1), placeOf(field, 6));
    EXPECT_EQ(shown(field), "o[ne tw]o three");
    stage.drag(placeOf(field, 8), placeOf(field, 4));
    EXPECT_EQ(shown(field), "one [two ]three");
    stage.advance(1);
    doubleTap(field, 5);
    EXPECT_EQ(shown(field), "one [two] three");
    stage.advance(1);
    doubleTap(field, 5, 3);
    EXPECT_EQ(shown(field), "[one two three]");
    stage.advance(1);
    stage.tap(placeOf(field, 3));
    EXPECT_EQ(shown(field), "one| two three");
    // Two taps that end in a drag go on by words.
    stage.advance(1);
    stage.tap(placeOf(field, 5));
    stage.drag(placeOf(field, 5), placeOf(field, 9));
    EXPECT_EQ(shown(field), "one [two three]");
}

TEST_F(UITextFieldTest, PasswordsShowDotsAndStayHere) {
    field->setSecureTextEntry(true);
    field->becomeFirstResponder();
    UIPasteboard::generalPasteboard()->setString("before");
    stage.type("pä👨‍👩‍👧s");
    const double width =
        field->caretRectForPosition(99).minX() - field->caretRectForPosition(0).minX();
    EXPECT_NEAR(width, sizeWithFont("••••", field->font()).width, 0.5);
    stage.tap(placeOf(field, 3));
    EXPECT_EQ(field->selectedRange(), (NSRange{3, 0}));
    stage.pressKey(Usage::DeleteForward);
    EXPECT_EQ(field->text(), "päs");
    stage.pressShortcut("a");
    stage.pressShortcut("c");
    stage.pressShortcut("x");
    EXPECT_EQ(field->text(), "päs");
    EXPECT_EQ(UIPasteboard::generalPasteboard()->string(), "before");
    // Words would tell of blanks.
    field->setText("one two");
    stage.advance(1);
    doubleTap(field, 5);
    EXPECT_EQ(shown(field), "[one two]");
}

TEST_F(UITextFieldTest, ACompositionShowsAndBecomesText) {
    field->setDelegate(listener);
    field->becomeFirstResponder();
    stage.compose("ni");
    EXPECT_EQ(field->text(), "ni");
    EXPECT_EQ(field->markedTextRange(), (NSRange{0, 2}));
    stage.compose("");
    EXPECT_EQ(field->text(), "");
    stage.compose("nihao");
    stage.type("你好");
    EXPECT_EQ(field->text(), "你好");
    EXPECT_FALSE(field->markedTextRange());
    stage.pressShortcut("z");
    EXPECT_EQ(field->text(), "");
    stage.compose("x");
    field->resignFirstResponder();
    EXPECT_EQ(field->text(), "x");
    EXPECT_FALSE(field->markedTextRange());
}

TEST_F(UITextFieldTest, TheClearButtonShowsAsItsModeSays) {
    const struct {
        UITextFieldViewMode mode;
        bool resting, editing;
    } cases[] = {
        {UITextFieldViewMode::Never, false, false},
        {UITextFieldViewMode::WhileEditing, false, true},
        {UITextFieldViewMode::UnlessEditing, true, false},
        {UITextFieldViewMode::Always, true, true},
    };
    const auto visible = [&] {
        stage.settle();
        return clearButton() && !clearButton()->hidden();
    };
    for (const auto& [mode, resting, editing] : cases) {
        field->setClearButtonMode(mode);
        field->setText("x");
        EXPECT_EQ(visible(), resting);
        field->becomeFirstResponder();
        EXPECT_EQ(visible(), editing);
        field->setText("");
        EXPECT_FALSE(visible());
        field->resignFirstResponder();
    }
    field->setText("gone");
    field->setDelegate(listener);
    listener->listen(UITextFieldTextDidChangeNotification);
    listener->refusesClear = true;
    stage.settle();
    stage.tap(clearButton());
    EXPECT_EQ(field->text(), "gone");
    listener->refusesClear = false;
    stage.tap(clearButton());
    EXPECT_EQ(field->text(), "");
    EXPECT_EQ(listener->take(), (Words{"0+4=", UITextFieldTextDidChangeNotification}));
}

TEST_F(UITextFieldTest, ThePlaceholderGivesWayToText) {
    EXPECT_EQ(field->placeholder(), "");
    field->setPlaceholder("Name");
    stage.settle();
    const auto label = field->placeholderLabel();
    EXPECT_FALSE(label->hidden());
    field->becomeFirstResponder();
    stage.type("x");
    EXPECT_TRUE(label->hidden());
    stage.pressKey(Usage::DeleteOrBackspace);
    EXPECT_FALSE(label->hidden());
    // It follows the field's font until it has its own.
    field->setFont(UIFont::systemFontOfSize(30));
    EXPECT_EQ(label->font()->pointSize(), 30);
    label->setFont(UIFont::systemFontOfSize(10));
    field->setFont(UIFont::systemFontOfSize(20));
    EXPECT_EQ(label->font()->pointSize(), 10);
}

TEST_F(UITextFieldTest, ALongTextScrollsToItsCaretAndBack) {
    field->becomeFirstResponder();
    stage.type("a text that is a good deal wider than the field that it stands in");
    stage.settle();
    const auto inside = [&](std::size_t position) {
        stage.settle();
        return field->bounds().insetBy(-0.1, 0).contains(field->caretRectForPosition(position));
    };
    EXPECT_TRUE(inside(field->text().size()));
    EXPECT_FALSE(inside(0));
    stage.pressKey(Usage::Home);
    EXPECT_TRUE(inside(0));
    stage.pressKey(Usage::End);
    const double whole = field->sizeThatFits({}).width;
    field->resignFirstResponder();
    EXPECT_TRUE(inside(0));
    // It ends in an ellipsis now, and is whole again when a touch begins to edit it.
    EXPECT_LE(field->caretRectForPosition(field->text().size()).minX(), 200);
    EXPECT_EQ(field->sizeThatFits({}).width, whole);
    stage.tap(placeOf(field, 3));
    EXPECT_EQ(field->selectedRange().location, 3u);
    EXPECT_FALSE(inside(field->text().size()));
}

TEST_F(UITextFieldTest, AlignsAndMakesRoomForWhatStandsBeside) {
    field->setText("x");
    const auto edge = [&] {
        stage.settle();
        return field->caretRectForPosition(0).minX();
    };
    EXPECT_NEAR(edge(), 0, 0.5);
    field->setBorderStyle(UITextBorderStyle::RoundedRect);
    EXPECT_NEAR(edge(), 7, 0.5);
    field->setTextAlignment(NSTextAlignment::Center);
    EXPECT_NEAR(edge(), 100 - sizeWithFont("x", field->font()).width / 2, 1);
    field->setTextAlignment(NSTextAlignment::Right);
    EXPECT_NEAR(edge(), 200 - 7 - sizeWithFont("x", field->font()).width, 3);
    field->setTextAlignment(NSTextAlignment::Natural);
    field->setLeftView(make<UIView>(Rect(0, 0, 20, 20)));
    EXPECT_NEAR(edge(), 7, 0.5);
    field->setLeftViewMode(UITextFieldViewMode::Always);
    EXPECT_NEAR(edge(), 28, 0.5);
    field->setLeftView(nullptr);
    field->setText("ש");
    EXPECT_NEAR(field->caretRectForPosition(0).minX(), 7, 200);
    EXPECT_GT(edge(), 180);
}

TEST_F(UITextFieldTest, LeavingTheWindowOrBeingDisabledEndsEditing) {
    field->setDelegate(listener);
    field->becomeFirstResponder();
    field->setEnabled(false);
    EXPECT_FALSE(field->isEditing());
    EXPECT_FALSE(field->becomeFirstResponder());
    field->setEnabled(true);
    field->becomeFirstResponder();
    field->removeFromSuperview();
    EXPECT_FALSE(field->isEditing());
    EXPECT_FALSE(field->becomeFirstResponder());
    EXPECT_EQ(listener->take(), (Words{"begin", "end", "begin", "end"}));
    EXPECT_EQ(UIApplication::sharedApplication()->keyInput(), nullptr);
}

TEST_F(UITextFieldTest, TheCaretBlinksByTheClock) {
    field->becomeFirstResponder();
    const auto same = [](const Ref<UIImage>& one, const Ref<UIImage>& other) {
        return UIImagePNGRepresentation(one) == UIImagePNGRepresentation(other);
    };
    const auto on = stage.snapshot();
    stage.advance(0.6);
    const auto off = stage.snapshot();
    EXPECT_FALSE(same(on, off));
    stage.advance(0.5);
    EXPECT_TRUE(same(on, stage.snapshot()));
    // Typing shows it at once.
    stage.advance(0.5);
    stage.type("x");
    stage.pressKey(Usage::DeleteOrBackspace);
    EXPECT_TRUE(same(on, stage.snapshot()));
    field->resignFirstResponder();
    EXPECT_TRUE(same(off, stage.snapshot()));
}

}  // namespace
}  // namespace zn::test
