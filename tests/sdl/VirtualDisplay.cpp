#include "tests/sdl/VirtualDisplay.h"

#include <fstream>
#include <vector>

namespace zn {
namespace {

/// Fields of the server's screen file, a dump of 32-bit big-endian words.
enum HeaderField { HeaderSize = 0, Width = 4, Height = 5, BytesPerLine = 12, ColorCount = 19 };
constexpr std::size_t bytesPerColor = 12;

std::uint32_t field(const std::vector<unsigned char>& dump, std::size_t index) {
    const unsigned char* bytes = dump.data() + index * 4;
    return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
           static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
}

}  // namespace

VirtualDisplay::VirtualDisplay(int width, int height) {
    const std::string size = std::to_string(width) + "x" + std::to_string(height) + "x24";
    server_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"Xvfb", "-displayfd", "3", "-screen", "0", size, "-fbdir",
                                 folder_.path(), "-nolisten", "tcp", "-nocursor"});
    if (server_->started())
        name_ = server_->readLine();
    if (!name_.empty())
        name_ = ":" + name_;
}

Ref<UIImage> VirtualDisplay::screenshot() const {
    std::ifstream file(folder_.path("Xvfb_screen0"), std::ios::binary);
    const std::vector<unsigned char> dump((std::istreambuf_iterator<char>(file)), {});
    if (dump.size() < 100)
        return nullptr;
    const std::size_t width = field(dump, Width);
    const std::size_t height = field(dump, Height);
    const std::size_t stride = field(dump, BytesPerLine);
    const std::size_t start = field(dump, HeaderSize) + field(dump, ColorCount) * bytesPerColor;
    if (dump.size() < start + stride * height)
        return nullptr;
    auto pixels = std::make_unique<std::uint32_t[]>(width * height);
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x) {
            const unsigned char* bytes = dump.data() + start + y * stride + x * 4;
            pixels[y * width + x] = 0xff000000u | static_cast<std::uint32_t>(bytes[2]) << 16 |
                                    static_cast<std::uint32_t>(bytes[1]) << 8 | bytes[0];
        }
    return UIImage::imageWithCGImage(make<CGImage>(width, height, std::move(pixels)));
}

void VirtualDisplay::click(int x, int y) const {
    // Down and up apart, as a finger does it.
    runCommand("xdotool mousemove " + std::to_string(x) + " " + std::to_string(y) +
                   " mousedown 1 sleep 0.05 mouseup 1",
               {"DISPLAY=" + name_});
}

void VirtualDisplay::type(const std::string& text) const {
    // Characters that no key has borrow one, which takes the server and the program a moment.
    runCommand("xdotool type --delay 60 '" + text + "'", {"DISPLAY=" + name_});
}

void VirtualDisplay::press(const std::string& keys) const {
    runCommand("xdotool key --delay 40 " + keys, {"DISPLAY=" + name_});
}

std::string VirtualDisplay::clipboard() const {
    return runCommand("timeout 2 xclip -o -selection clipboard", {"DISPLAY=" + name_}).output;
}

void VirtualDisplay::setClipboard(const std::string& text) const {
    // It stays to answer whoever pastes, until another one copies.
    runCommand("printf %s '" + text + "' | xclip -i -selection clipboard >/dev/null 2>&1 3>&-",
               {"DISPLAY=" + name_});
}

void VirtualDisplay::drag(int x, int fromY, int toY, double seconds) const {
    constexpr int steps = 8;
    const auto moveTo = [x](int y) {
        return " mousemove " + std::to_string(x) + " " + std::to_string(y);
    };
    std::string command = "xdotool" + moveTo(fromY) + " mousedown 1";
    for (int step = 1; step <= steps; ++step)
        command += " sleep " + std::to_string(seconds / steps) +
                   moveTo(fromY + (toY - fromY) * step / steps);
    runCommand(command + " mouseup 1", {"DISPLAY=" + name_});
}

void VirtualDisplay::dragAcross(int fromX, int toX, int y) const {
    constexpr int steps = 12;
    const auto place = [&](int x) {
        return " mousemove " + std::to_string(x) + " " + std::to_string(y);
    };
    std::string command = "xdotool" + place(fromX) + " mousedown 1";
    for (int step = 1; step <= steps; ++step)
        command += " sleep 0.02" + place(fromX + (toX - fromX) * step / steps);
    runCommand(command + " sleep 0.02 mouseup 1", {"DISPLAY=" + name_});
}

}  // namespace zn
