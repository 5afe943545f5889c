#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/sdl/VirtualDisplay.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Places.h"

namespace zn {
namespace {

constexpr double scale = 2;
constexpr int displayWidth = 800;
constexpr int displayHeight = 1400;
/// In the middle of the text page's text view; points of the phone.
constexpr int noteX = 180;
constexpr int noteY = 320;

/// The gallery's text page in a real window, typed into through the X server.
class TypedText : public ::testing::Test {
protected:
    TypedText() : display_(displayWidth, displayHeight) {}

    void SetUp() override {
        ASSERT_TRUE(display_.running());
        program_ = std::make_unique<ChildProcess>(
            std::vector<std::string>{galleryProgram(), "--window", "--device", "phone", "--page",
                                     "text"},
            std::vector<std::string>{"DISPLAY=" + display_.name(), "SDL_VIDEODRIVER=x11",
                                     "LC_ALL=C.UTF-8"});
        // Up when it answers.
        ASSERT_TRUE(becomes("ready", [this] {
            clickNote();
            display_.press("ctrl+a");
            display_.type("ready");
            return copied();
        }));
        display_.press("ctrl+a BackSpace");
    }

    void clickNote() const {
        display_.click(displayWidth / 2 + static_cast<int>((noteX - 375.0 / 2) * scale),
                       displayHeight / 2 + static_cast<int>((noteY - 667.0 / 2) * scale));
    }

    /// All of the text, through the clipboard.
    std::string copied() const {
        display_.press("ctrl+a ctrl+c");
        const std::string text = display_.clipboard();
        display_.press("End");
        return text;
    }

    template <class Get>
    static bool becomes(const std::string& expected, const Get& get) {
        const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        std::string last;
        do {
            last = get();
            if (last == expected)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        } while (std::chrono::steady_clock::now() < giveUp);
        ADD_FAILURE() << "is " << last << ", not " << expected;
        return false;
    }

    VirtualDisplay display_;
    std::unique_ptr<ChildProcess> program_;
};

TEST_F(TypedText, ArrivesInAnyScript) {
    display_.type("caf\xC3\xA9 \xE4\xBD\xA0 \xF0\x9F\x98\x80");
    EXPECT_TRUE(becomes("caf\xC3\xA9 \xE4\xBD\xA0 \xF0\x9F\x98\x80", [this] { return copied(); }));
    // The emoji is one step, and one deletion.
    display_.press("Left Left BackSpace Delete");
    EXPECT_TRUE(becomes("caf\xC3\xA9 \xF0\x9F\x98\x80", [this] { return copied(); }));
}

TEST_F(TypedText, IsCutAndPastedThroughTheDisplaysClipboard) {
    display_.type("one two");
    display_.press("ctrl+shift+Left ctrl+x");
    EXPECT_TRUE(becomes("two", [this] { return display_.clipboard(); }));
    display_.press("Home ctrl+v");
    EXPECT_TRUE(becomes("twoone ", [this] { return copied(); }));
    display_.setClipboard("from \xE5\xA4\x96");
    display_.press("ctrl+a ctrl+v Return ctrl+v");
    EXPECT_TRUE(becomes("from \xE5\xA4\x96\nfrom \xE5\xA4\x96", [this] { return copied(); }));
    display_.press("ctrl+z");
    EXPECT_TRUE(becomes("from \xE5\xA4\x96\n", [this] { return copied(); }));
}

}  // namespace
}  // namespace zn
