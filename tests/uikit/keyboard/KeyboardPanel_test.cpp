#include "platform/uikit/keyboard/KeyButton.h"
#include "tests/uikit/text/TextStage.h"
#include "zarnic/platform/drawing/NSValue.h"
#include "zarnic/platform/uikit/UILabel.h"

namespace zn::test {
namespace {

using Words = std::vector<std::string>;

class KeyboardPanelTest : public TextStageTest {
protected:
    KeyboardPanelTest() {
        field = added<UITextField>(Rect(20, 100, 200, 34));
        UIApplication::sharedApplication()->setShowsKeyboardPanel(true);
        for (const char* name :
             {UIKeyboardWillShowNotification, UIKeyboardDidShowNotification,
              UIKeyboardWillHideNotification, UIKeyboardDidHideNotification,
              UIKeyboardWillChangeFrameNotification, UIKeyboardDidChangeFrameNotification})
            listener->listen(name);
    }

    static Ref<KeyButton> keyIn(const Ref<UIView>& view, const std::string& label,
                                KeyboardKey::Kind kind) {
        if (const auto key = as<KeyButton>(view))
            return key->label() == label && key->key().kind == kind ? key : nullptr;
        for (const auto& each : view->subviews())
            if (auto found = keyIn(each, label, kind))
                return found;
        return nullptr;
    }

    Ref<KeyButton> key(const std::string& label, KeyboardKey::Kind kind = KeyboardKey::Kind::Text) {
        for (const auto& each : UIApplication::sharedApplication()->windows())
            if (auto found = each->hidden() ? nullptr : keyIn(each, label, kind))
                return found;
        return nullptr;
    }

    void tapKeys(const Words& labels) {
        for (const std::string& label : labels) {
            ASSERT_TRUE(key(label)) << label;
            stage.tap(key(label));
        }
    }

    Ref<UITextField> field;
};

TEST_F(KeyboardPanelTest, ComesAndGoesWithWhatTakesTextAndSaysSoOnce) {
    field->becomeFirstResponder();
    stage.settle();
    EXPECT_EQ(listener->take(),
              (Words{UIKeyboardWillChangeFrameNotification, UIKeyboardWillShowNotification}));
    stage.advance(0.3);
    EXPECT_EQ(listener->take(),
              (Words{UIKeyboardDidShowNotification, UIKeyboardDidChangeFrameNotification}));
    EXPECT_GT(UIApplication::sharedApplication()->keyboardHeight(), 200);
    // From one field to the next it stays.
    const auto other = added<UITextField>(Rect(20, 200, 200, 34));
    stage.tap(other);
    stage.advance(1);
    EXPECT_TRUE(other->isFirstResponder());
    EXPECT_EQ(listener->take(), Words());
    other->resignFirstResponder();
    stage.advance(0.3);
    EXPECT_EQ(listener->take(),
              (Words{UIKeyboardWillChangeFrameNotification, UIKeyboardWillHideNotification,
                     UIKeyboardDidHideNotification, UIKeyboardDidChangeFrameNotification}));
    EXPECT_EQ(key("q"), nullptr);
}

TEST_F(KeyboardPanelTest, TapsType) {
    field->becomeFirstResponder();
    stage.advance(0.5);
    tapKeys({"h", "i"});
    stage.tap(key("space", KeyboardKey::Kind::Space));
    stage.tap(key("", KeyboardKey::Kind::Shift));
    tapKeys({"A", "b"});
    EXPECT_EQ(field->text(), "hi Ab");
    EXPECT_TRUE(window->isKeyWindow());
    // Twice, it holds until it is tapped again.
    stage.advance(1);
    stage.tap(key("", KeyboardKey::Kind::Shift));
    stage.tap(key("", KeyboardKey::Kind::Shift));
    tapKeys({"C", "D"});
    stage.advance(1);
    stage.tap(key("", KeyboardKey::Kind::Shift));
    stage.tap(key("123", KeyboardKey::Kind::Symbols));
    tapKeys({"7", "?"});
    stage.tap(key("#+=", KeyboardKey::Kind::MoreSymbols));
    tapKeys({"€"});
    stage.tap(key("ABC", KeyboardKey::Kind::Letters));
    tapKeys({"e"});
    EXPECT_EQ(field->text(), "hi AbCD7?€e");
    stage.tap(key("", KeyboardKey::Kind::Delete));
    EXPECT_EQ(field->text(), "hi AbCD7?€");
    // Held, it repeats, and stops with the finger.
    const auto erase = key("", KeyboardKey::Kind::Delete);
    const Point place = erase->convertPointToView(erase->bounds().center(), nullptr);
    const Point onScreen = erase->window()->convertPointToWindow(place, nullptr);
    stage.touchDown(onScreen);
    stage.advance(2);
    EXPECT_EQ(field->text(), "");
    stage.touchUp(onScreen);
    tapKeys({"x"});
    stage.advance(1);
    EXPECT_EQ(field->text(), "x");
    field->setDelegate(listener);
    listener->take();
    stage.tap(key("return", KeyboardKey::Kind::Return));
    EXPECT_EQ(listener->take(), Words{"return"});
}

TEST_F(KeyboardPanelTest, AFingerBetweenTwoKeysHitsOne) {
    field->becomeFirstResponder();
    stage.advance(0.5);
    const auto letter = key("q");
    const Rect box = letter->window()->convertRectToWindow(
        letter->convertRectToView(letter->bounds(), nullptr), nullptr);
    stage.tap({box.maxX() + 2, box.midY()});
    EXPECT_EQ(field->text(), "q");
    stage.tap({box.maxX() + 4, box.midY()});
    EXPECT_EQ(field->text(), "qw");
}

TEST_F(KeyboardPanelTest, ShowsTheKeysThatAnInputWants) {
    field->setReturnKeyType(UIReturnKeyType::Search);
    field->becomeFirstResponder();
    stage.advance(0.5);
    EXPECT_TRUE(key("Search", KeyboardKey::Kind::Return));
    const auto number = added<UITextField>(Rect(20, 200, 200, 34));
    number->setKeyboardType(UIKeyboardType::DecimalPad);
    number->becomeFirstResponder();
    stage.advance(0.5);
    EXPECT_EQ(key("q"), nullptr);
    tapKeys({"4", ".", "2"});
    EXPECT_EQ(number->text(), "4.2");
    const auto address = added<UITextField>(Rect(20, 250, 200, 34));
    address->setKeyboardType(UIKeyboardType::EmailAddress);
    address->becomeFirstResponder();
    stage.advance(0.5);
    tapKeys({"a", "@", "b", "."});
    EXPECT_EQ(address->text(), "a@b.");
}

TEST_F(KeyboardPanelTest, InputAndAccessoryViewsAreShownWithoutAKeyboardToo) {
    UIApplication::sharedApplication()->setShowsKeyboardPanel(false);
    field->becomeFirstResponder();
    stage.advance(0.5);
    EXPECT_EQ(listener->take(), Words());
    field->resignFirstResponder();
    const auto bar = make<UIView>(Rect(0, 0, 10, 44));
    const auto wheel = make<UIView>(Rect(0, 0, 10, 150));
    field->setInputAccessoryView(bar);
    field->setInputView(wheel);
    field->becomeFirstResponder();
    stage.advance(0.5);
    EXPECT_EQ(UIApplication::sharedApplication()->keyboardHeight(), 194);
    EXPECT_EQ(wheel->frame(), Rect(0, 44, 375, 150));
    EXPECT_EQ(bar->window()->frame(), Rect(0, 667 - 194, 375, 194));
    EXPECT_EQ(listener->take().size(), 4u);
    field->resignFirstResponder();
    stage.advance(0.5);
    EXPECT_TRUE(bar->window() == nullptr || bar->window()->hidden());
}

}  // namespace
}  // namespace zn::test
