#include "host/sdl/SdlInput.h"

#include "host/sdl/SdlText.h"
#include "zarnic/platform/uikit/UIApplication.h"

namespace zn {
namespace {

/// The mouse is a finger that no touch screen numbers so.
constexpr std::int64_t mouseFinger = -1;

}  // namespace

SdlInput::Taken SdlInput::take() {
    Taken taken;
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        taken.any = true;
        handle(event, taken);
    }
    return taken;
}

void SdlInput::handle(const SDL_Event& event, Taken& taken) {
    switch (event.type) {
        case SDL_QUIT:
            taken.quit = true;
            break;
        case SDL_WINDOWEVENT:
            if (event.window.event == SDL_WINDOWEVENT_EXPOSED ||
                event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED)
                taken.exposed = true;
            break;
        case SDL_RENDER_TARGETS_RESET:
            taken.exposed = true;
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            mouseButton(event.button);
            break;
        case SDL_MOUSEMOTION:
            mouseMotion(event.motion);
            break;
        case SDL_FINGERDOWN:
        case SDL_FINGERMOTION:
        case SDL_FINGERUP:
            finger(event.tfinger);
            break;
        case SDL_TEXTINPUT:
            UIApplication::sharedApplication()->insertText(event.text.text);
            break;
        case SDL_TEXTEDITING:
            showComposition(event.edit.text, event.edit.start, event.edit.length);
            break;
        case SDL_TEXTEDITING_EXT:
            showComposition(event.editExt.text, event.editExt.start, event.editExt.length);
            SDL_free(event.editExt.text);
            break;
        case SDL_KEYDOWN:
            UIApplication::sharedApplication()->pressKey(keyOf(event.key.keysym));
            break;
        default:
            break;
    }
}

Point SdlInput::fromWindow(int x, int y) const {
    const Size size = window_.size();
    return {x * screen_.width / size.width, y * screen_.height / size.height};
}

void SdlInput::mouseButton(const SDL_MouseButtonEvent& event) {
    if (event.button != SDL_BUTTON_LEFT)
        return;
    const auto application = UIApplication::sharedApplication();
    const Point place = fromWindow(event.x, event.y);
    const bool down = event.state == SDL_PRESSED;
    if (down && !mouseDown_)
        application->touchDown(mouseFinger, place);
    else if (!down && mouseDown_)
        application->touchUp(mouseFinger, place);
    mouseDown_ = down;
}

void SdlInput::mouseMotion(const SDL_MouseMotionEvent& event) {
    if (mouseDown_)
        UIApplication::sharedApplication()->touchMove(mouseFinger, fromWindow(event.x, event.y));
}

void SdlInput::finger(const SDL_TouchFingerEvent& event) {
    const auto application = UIApplication::sharedApplication();
    const Point place{static_cast<double>(event.x) * screen_.width,
                      static_cast<double>(event.y) * screen_.height};
    if (event.type == SDL_FINGERDOWN)
        application->touchDown(event.fingerId, place);
    else if (event.type == SDL_FINGERUP)
        application->touchUp(event.fingerId, place);
    else
        application->touchMove(event.fingerId, place);
}

}  // namespace zn
