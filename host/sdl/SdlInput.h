#pragma once

#include <SDL.h>

#include "host/sdl/SdlWindow.h"
#include "zarnic/platform/drawing/Geometry.h"

namespace zn {

/// Turns SDL's events into touches, text and keys of the application.
class SdlInput {
public:
    /// `screen`: the size of the screen in points, as far as the window shows it.
    SdlInput(const SdlWindow& window, Size screen) : window_(window), screen_(screen) {}

    struct Taken {
        bool any = false;
        bool exposed = false;
        bool quit = false;
    };
    /// Handles everything that has come in.
    Taken take();

private:
    void handle(const SDL_Event& event, Taken& taken);
    void mouseButton(const SDL_MouseButtonEvent& event);
    void mouseMotion(const SDL_MouseMotionEvent& event);
    void finger(const SDL_TouchFingerEvent& event);
    Point fromWindow(int x, int y) const;

    const SdlWindow& window_;
    Size screen_;
    bool mouseDown_ = false;
};

}  // namespace zn
