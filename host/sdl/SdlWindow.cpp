#include "host/sdl/SdlWindow.h"

#include <SDL_syswm.h>

#include <algorithm>
#include <cmath>

#ifdef SDL_VIDEO_DRIVER_WAYLAND
#include <wayland-client-core.h>
#endif

namespace zn {
namespace {

struct PixelSize {
    int width;
    int height;
};

PixelSize pixelsOf(const DeviceProfile& device) {
    return {static_cast<int>(std::ceil(device.size.width * device.scale)),
            static_cast<int>(std::ceil(device.size.height * device.scale))};
}

/// The part of the pixels' size that the display has room for, at most all of it.
double fitting(const PixelSize& pixels) {
    SDL_Rect room;
    if (SDL_GetDisplayUsableBounds(0, &room) != 0 || room.w <= 0 || room.h <= 0)
        return 1;
    return std::min({1.0, static_cast<double>(room.w) / pixels.width,
                     static_cast<double>(room.h) / pixels.height});
}

}  // namespace

SdlWindow::Video::Video() : began(SDL_InitSubSystem(SDL_INIT_VIDEO | SDL_INIT_EVENTS) == 0) {}

SdlWindow::Video::~Video() {
    if (began)
        SDL_QuitSubSystem(SDL_INIT_VIDEO | SDL_INIT_EVENTS);
}

std::unique_ptr<SdlWindow> SdlWindow::open(const std::string& title, const DeviceProfile& device,
                                           std::string& problem) {
    // The application has no use for a second meaning of fingers.
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "linear");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    // Input methods show their own candidates, and tell of long compositions too.
    SDL_SetHint(SDL_HINT_IME_SHOW_UI, "1");
    SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
    // Signals stay the program's own.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    std::unique_ptr<SdlWindow> made(new SdlWindow);
    const PixelSize pixels = pixelsOf(device);
    if (made->video_.began) {
        const double part = fitting(pixels);
        made->window_ =
            SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                             static_cast<int>(pixels.width * part),
                             static_cast<int>(pixels.height * part), SDL_WINDOW_SHOWN);
    }
    if (made->window_ != nullptr)
        made->renderer_ = SDL_CreateRenderer(made->window_, -1, 0);
    if (made->renderer_ != nullptr)
        made->texture_ =
            SDL_CreateTexture(made->renderer_, SDL_PIXELFORMAT_ARGB8888,
                              SDL_TEXTUREACCESS_STREAMING, pixels.width, pixels.height);
    if (made->texture_ != nullptr)
        return made;
    problem = SDL_GetError();
    return nullptr;
}

SdlWindow::~SdlWindow() {
    if (texture_ != nullptr)
        SDL_DestroyTexture(texture_);
    if (renderer_ != nullptr)
        SDL_DestroyRenderer(renderer_);
    if (window_ != nullptr)
        SDL_DestroyWindow(window_);
}

void SdlWindow::update(const std::uint32_t* pixels, std::size_t stride,
                       const std::vector<PixelRect>& damage) {
    for (const PixelRect& each : damage) {
        const SDL_Rect rect{each.x, each.y, each.width, each.height};
        const std::uint32_t* first =
            pixels + static_cast<std::size_t>(each.y) * stride + static_cast<std::size_t>(each.x);
        SDL_UpdateTexture(texture_, &rect, first, static_cast<int>(stride * sizeof *pixels));
    }
}

void SdlWindow::present() {
    SDL_RenderCopy(renderer_, texture_, nullptr, nullptr);
    SDL_RenderPresent(renderer_);
}

Size SdlWindow::size() const {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window_, &width, &height);
    return {static_cast<double>(width), static_cast<double>(height)};
}

std::optional<int> SdlWindow::connection() const {
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(window_, &info) != SDL_TRUE)
        return std::nullopt;
#ifdef SDL_VIDEO_DRIVER_X11
    if (info.subsystem == SDL_SYSWM_X11)
        return ConnectionNumber(info.info.x11.display);
#endif
#ifdef SDL_VIDEO_DRIVER_WAYLAND
    if (info.subsystem == SDL_SYSWM_WAYLAND)
        return wl_display_get_fd(info.info.wl.display);
#endif
    return std::nullopt;
}

}  // namespace zn
