#include "host/sdl/SdlText.h"

#include <algorithm>
#include <memory>

#include "zarnic/platform/services/Services.h"
#include "zarnic/platform/uikit/UIApplication.h"

namespace zn {
namespace {

unsigned modifiersOf(unsigned mod) {
    const struct {
        unsigned sdl;
        unsigned flag;
    } table[] = {
        {KMOD_SHIFT, UIKeyModifierFlags::Shift},     {KMOD_CTRL, UIKeyModifierFlags::Control},
        {KMOD_ALT, UIKeyModifierFlags::Alternate},   {KMOD_GUI, UIKeyModifierFlags::Command},
        {KMOD_CAPS, UIKeyModifierFlags::AlphaShift},
    };
    unsigned flags = 0;
    for (const auto& [sdl, flag] : table)
        if ((mod & sdl) != 0)
            flags |= flag;
    return flags;
}

/// Without the lock the keypad's digits move the caret.
SDL_Scancode withoutKeypad(const SDL_Keysym& key) {
    if ((key.mod & KMOD_NUM) != 0)
        return key.scancode;
    switch (key.scancode) {
        case SDL_SCANCODE_KP_1:
            return SDL_SCANCODE_END;
        case SDL_SCANCODE_KP_2:
            return SDL_SCANCODE_DOWN;
        case SDL_SCANCODE_KP_3:
            return SDL_SCANCODE_PAGEDOWN;
        case SDL_SCANCODE_KP_4:
            return SDL_SCANCODE_LEFT;
        case SDL_SCANCODE_KP_6:
            return SDL_SCANCODE_RIGHT;
        case SDL_SCANCODE_KP_7:
            return SDL_SCANCODE_HOME;
        case SDL_SCANCODE_KP_8:
            return SDL_SCANCODE_UP;
        case SDL_SCANCODE_KP_9:
            return SDL_SCANCODE_PAGEUP;
        case SDL_SCANCODE_KP_PERIOD:
            return SDL_SCANCODE_DELETE;
        default:
            return key.scancode;
    }
}

/// The byte at which a character of a text begins.
std::size_t byteOf(std::string_view text, int character) {
    std::size_t at = 0;
    for (; character > 0 && at < text.size(); --character)
        do
            ++at;
        while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
    return at;
}

}  // namespace

UIKey keyOf(const SDL_Keysym& key) {
    // SDL's scan codes are the numbers of the USB tables.
    UIKey made{static_cast<UIKeyboardHIDUsage>(withoutKeypad(key)), modifiersOf(key.mod), {}};
    if (key.sym > 0x20 && key.sym < 0x7F)
        made.charactersIgnoringModifiers = std::string(1, static_cast<char>(key.sym));
    return made;
}

void showComposition(const char* text, int start, int length) {
    const std::string_view composed = text != nullptr ? text : "";
    const std::size_t from = byteOf(composed, std::max(start, 0));
    const std::size_t end = byteOf(composed, std::max(start, 0) + std::max(length, 0));
    UIApplication::sharedApplication()->setMarkedText(composed, {from, end - from});
}

SdlTextSession::SdlTextSession(const SdlWindow& window, Size screen)
    : window_(window), screen_(screen) {
    // SDL begins with it.
    SDL_StopTextInput();
}

void SdlTextSession::update() {
    const auto input = UIApplication::sharedApplication()->keyInput();
    if (running_ != (input != nullptr)) {
        running_ = input != nullptr;
        running_ ? SDL_StartTextInput() : SDL_StopTextInput();
        caret_ = {};
    }
    const Rect caret = input ? input->caretRectOnScreen() : Rect();
    if (!input || caret == caret_)
        return;
    caret_ = caret;
    const Size window = window_.size();
    const double across = window.width / screen_.width;
    const double down = window.height / screen_.height;
    const SDL_Rect place{
        static_cast<int>(caret.minX() * across), static_cast<int>(caret.minY() * down),
        static_cast<int>(caret.width() * across), static_cast<int>(caret.height() * down)};
    SDL_SetTextInputRect(&place);
}

void SdlClipboard::install() {
    [[maybe_unused]] static const bool installed = [] {
        Services::replace<Clipboard>(make<SdlClipboard>());
        return true;
    }();
}

std::optional<std::string> SdlClipboard::text() {
    if (SDL_HasClipboardText() != SDL_TRUE)
        return std::nullopt;
    const std::unique_ptr<char, decltype(&SDL_free)> text(SDL_GetClipboardText(), SDL_free);
    return text ? std::optional<std::string>(text.get()) : std::nullopt;
}

void SdlClipboard::setText(std::string_view text) {
    SDL_SetClipboardText(std::string(text).c_str());
}

}  // namespace zn
