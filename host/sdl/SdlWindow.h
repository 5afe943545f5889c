#pragma once

#include <SDL.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zarnic/platform/layers/Compositor.h"
#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

/// The SDL window that shows the screen's pixels: one to one where the display is large enough,
/// else as large as it can be.
class SdlWindow {
public:
    static std::unique_ptr<SdlWindow> open(const std::string& title, const DeviceProfile& device,
                                           std::string& problem);
    ~SdlWindow();
    SdlWindow(const SdlWindow&) = delete;
    SdlWindow& operator=(const SdlWindow&) = delete;

    /// Takes over the damaged pixels of a picture with so many words a row.
    void update(const std::uint32_t* pixels, std::size_t stride,
                const std::vector<PixelRect>& damage);
    void present();
    /// The window's size in the units of mouse events.
    Size size() const;
    /// What becomes readable when input arrives; absent where there is no such thing.
    std::optional<int> connection() const;

private:
    /// Begins and ends SDL's video part.
    struct Video {
        Video();
        ~Video();
        bool began;
    };
    SdlWindow() = default;

    Video video_;
    SDL_Window* window_ = nullptr;
    SDL_Renderer* renderer_ = nullptr;
    SDL_Texture* texture_ = nullptr;
};

}  // namespace zn
