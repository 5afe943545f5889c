#pragma once

#include <SDL.h>

#include "host/sdl/SdlWindow.h"
#include "zarnic/platform/services/Clipboard.h"
#include "zarnic/platform/uikit/UIKeyInput.h"

namespace zn {

/// A key of SDL's as the application knows it.
UIKey keyOf(const SDL_Keysym& key);

/// Hands on what an input method composes; start and length count characters.
void showComposition(const char* text, int start, int length);

/// Text events and input methods are wanted while something takes text, at its caret.
class SdlTextSession {
public:
    /// `screen`: the size of the screen in points, as far as the window shows it.
    SdlTextSession(const SdlWindow& window, Size screen);
    /// Once a pass.
    void update();

private:
    const SdlWindow& window_;
    Size screen_;
    bool running_ = false;
    Rect caret_;
};

/// The display's clipboard.
class SdlClipboard final : public Clipboard {
public:
    /// Puts it in the place of the process's own, once. Throws
    /// `NSInternalInconsistencyException` when that was used before.
    static void install();
    std::optional<std::string> text() override;
    void setText(std::string_view text) override;
};

}  // namespace zn
