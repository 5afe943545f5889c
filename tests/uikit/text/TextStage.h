#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zarnic/platform/foundation/NSNotificationCenter.h"
#include "zarnic/platform/uikit/UITextField.h"
#include "zarnic/platform/uikit/UITextView.h"
#include "zarnic/testing/Stage.h"

namespace zn::test {

using Usage = UIKeyboardHIDUsage;
inline constexpr unsigned shift = UIKeyModifierFlags::Shift;
inline constexpr unsigned control = UIKeyModifierFlags::Control;

/// The text with `|` at the caret, or `[` and `]` around the selection.
template <class Input>
std::string shown(const Ref<Input>& input) {
    std::string text = input->text();
    const NSRange range = input->selectedRange();
    if (range.length == 0)
        return text.insert(range.location, "|");
    return text.insert(range.end(), "]").insert(range.location, "[");
}

/// Writes down what it hears of, in order.
class Listener : public NSObject, public UITextFieldDelegate, public UITextViewDelegate {
    ZN_OBJECT(Listener, NSObject)
public:
    std::vector<std::string> heard;
    bool refusesBegin = false;
    bool refusesEnd = false;
    bool refusesChange = false;
    bool refusesReturn = false;
    bool refusesClear = false;

    std::vector<std::string> take() { return std::exchange(heard, {}); }
    void listen(const char* notification) {
        NSNotificationCenter::defaultCenter()->addObserver(
            ZN_ACTION(std::static_pointer_cast<Listener>(shared_from_this()), noticed),
            notification);
    }
    void noticed(const Ref<NSNotification>& notification) { heard.push_back(notification->name()); }
    void began() { heard.emplace_back("event begin"); }
    void changed() { heard.emplace_back("event change"); }
    void ended() { heard.emplace_back("event end"); }
    void exited() { heard.emplace_back("event exit"); }

    bool textFieldShouldBeginEditing(const Ref<UITextField>&) override { return !refusesBegin; }
    void textFieldDidBeginEditing(const Ref<UITextField>&) override { heard.emplace_back("begin"); }
    bool textFieldShouldEndEditing(const Ref<UITextField>&) override { return !refusesEnd; }
    void textFieldDidEndEditing(const Ref<UITextField>&) override { heard.emplace_back("end"); }
    bool textFieldShouldChangeCharactersInRange(const Ref<UITextField>&, NSRange range,
                                                std::string_view text) override {
        return allows(range, text);
    }
    bool textFieldShouldClear(const Ref<UITextField>&) override { return !refusesClear; }
    bool textFieldShouldReturn(const Ref<UITextField>&) override {
        heard.emplace_back("return");
        return !refusesReturn;
    }
    bool textViewShouldBeginEditing(const Ref<UITextView>&) override { return !refusesBegin; }
    void textViewDidBeginEditing(const Ref<UITextView>&) override { heard.emplace_back("begin"); }
    bool textViewShouldEndEditing(const Ref<UITextView>&) override { return !refusesEnd; }
    void textViewDidEndEditing(const Ref<UITextView>&) override { heard.emplace_back("end"); }
    bool textViewShouldChangeTextInRange(const Ref<UITextView>&, NSRange range,
                                         std::string_view text) override {
        return allows(range, text);
    }
    void textViewDidChange(const Ref<UITextView>&) override { heard.emplace_back("change"); }

private:
    bool allows(NSRange range, std::string_view text) {
        heard.push_back(std::to_string(range.location) + "+" + std::to_string(range.length) + "=" +
                        std::string(text));
        return !refusesChange;
    }
};

/// A screen with one view on it.
class TextStageTest : public testing::Test {
protected:
    TextStageTest() {
        root = make<UIViewController>();
        window = stage.show(root);
        listener = make<Listener>();
    }

    template <class View>
    Ref<View> added(const Rect& frame) {
        const auto view = make<View>(frame);
        root->view()->addSubview(view);
        stage.settle();
        return view;
    }

    /// Where a position of the text is on the screen.
    template <class View>
    Point placeOf(const Ref<View>& view, std::size_t position) {
        const Rect caret = view->caretRectForPosition(position);
        return view->convertPointToView({caret.minX(), caret.midY()}, nullptr);
    }

    template <class View>
    void doubleTap(const Ref<View>& view, std::size_t position, int taps = 2) {
        for (int i = 0; i < taps; ++i)
            stage.tap(placeOf(view, position));
    }

    Stage stage;
    Ref<UIViewController> root;
    Ref<UIWindow> window;
    Ref<Listener> listener;
};

}  // namespace zn::test
