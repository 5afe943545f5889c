#include "platform/uikit/application/ApplicationState.h"
#include "platform/uikit/view/FirstResponder.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIKeyInput.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

Ref<UIKeyInput> UIApplication::keyInput() const {
    const auto view = as<UIView>(FirstResponder::shared().current());
    const auto window = view ? view->window() : nullptr;
    return window && window->isKeyWindow() ? as<UIKeyInput>(view) : nullptr;
}

bool UIApplication::showsKeyboardPanel() const {
    return state_->showsKeyboardPanel;
}

void UIApplication::setShowsKeyboardPanel(bool shows) {
    state_->showsKeyboardPanel = shows;
    NSRunLoop::mainRunLoop()->wakeUp();
}

void UIApplication::State::updateKeyboardPanel() {
    const auto input = UIApplication::sharedApplication()->keyInput();
    const bool wanted =
        input && (showsKeyboardPanel || input->inputView() || input->inputAccessoryView());
    if (!keyboardPanel && !wanted)
        return;
    if (!keyboardPanel)
        keyboardPanel = make<KeyboardPanel>();
    keyboardPanel->setHasKeyboard(showsKeyboardPanel);
    keyboardPanel->update();
}

bool UIApplication::insertText(std::string_view text) {
    const auto input = keyInput();
    if (input && !text.empty())
        input->insertText(text);
    return input != nullptr;
}

bool UIApplication::setMarkedText(std::string_view text, NSRange selected) {
    const auto input = keyInput();
    if (input)
        input->setMarkedText(text, selected);
    return input != nullptr;
}

bool UIApplication::pressKey(const UIKey& key) {
    const auto input = keyInput();
    return input && input->pressKey(key);
}

}  // namespace zn
