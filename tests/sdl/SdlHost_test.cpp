#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/sdl/VirtualDisplay.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Places.h"
#include "tests/support/TemporaryFolder.h"
#include "zarnic/testing/Pictures.h"

namespace zn {
namespace {

constexpr double scale = 2;
constexpr Size screen{375, 667};
/// Below the status bar, which shows the time.
const Rect compared(0, 20, 375, 647);

/// The gallery in a real window of a virtual display, beside the pictures it draws without one.
class GalleryWindow : public ::testing::Test {
protected:
    GalleryWindow() : display_(800, 1400) {}

    void open(const std::string& page) {
        ASSERT_TRUE(display_.running());
        program_ = std::make_unique<ChildProcess>(
            std::vector<std::string>{galleryProgram(), "--window", "--device", "phone", "--page",
                                     page},
            std::vector<std::string>{"DISPLAY=" + display_.name(), "SDL_VIDEODRIVER=x11"});
    }

    /// What the gallery draws for a page without a display.
    Ref<UIImage> shot(const std::string& page) {
        const CommandResult result = runCommand("cd " + folder_.path() + " && " + galleryProgram() +
                                                " --shot --device phone --page " + page);
        EXPECT_EQ(result.status, 0) << result.output;
        return part(UIImage::imageWithContentsOfFile(folder_.path("out/gallery/" + page + ".png")),
                    {});
    }

    /// The window is in the middle of the display.
    static Point windowOrigin() {
        return {(800 - screen.width * scale) / 2, (1400 - screen.height * scale) / 2};
    }

    static Ref<UIImage> part(const Ref<UIImage>& picture, Point origin) {
        if (!picture)
            return nullptr;
        return UIImage::imageWithCGImage(picture->cgImage()->imageInRect(
            Rect(origin.x + compared.minX() * scale, origin.y + compared.minY() * scale,
                 compared.width() * scale, compared.height() * scale)));
    }

    /// Looks at the window until it shows what the headless screen draws.
    void expectShows(const std::string& page) {
        const Ref<UIImage> expected = shot(page);
        PictureDifference difference;
        const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        do {
            difference = comparePictures(part(display_.screenshot(), windowOrigin()), expected);
            if (difference.same)
                return;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        } while (std::chrono::steady_clock::now() < giveUp && program_->running());
        FAIL() << page << ": " << difference.pixels << " pixels differ, by up to "
               << difference.worst << " " << difference.problem;
    }

    void click(Point place) {
        display_.click(static_cast<int>(windowOrigin().x + place.x * scale),
                       static_cast<int>(windowOrigin().y + place.y * scale));
    }

    void drag(Point from, Point to, double seconds) {
        const Point origin = windowOrigin();
        display_.drag(static_cast<int>(origin.x + from.x * scale),
                      static_cast<int>(origin.y + from.y * scale),
                      static_cast<int>(origin.y + to.y * scale), seconds);
    }

    VirtualDisplay display_;
    TemporaryFolder folder_;
    std::unique_ptr<ChildProcess> program_;
};

TEST_F(GalleryWindow, ClickShowsTheToast) {
    open("toast-short");
    expectShows("toast");
    click({150, 230});
    expectShows("toast-short");
}

TEST_F(GalleryWindow, PushAndPopAreClickedThrough) {
    open("home");
    expectShows("home");
    click({150, 270});
    expectShows("navigation");
    click({150, 220});
    expectShows("navigation-second");
    click({40, 42});
    expectShows("navigation");
    click({40, 42});
    expectShows("home");
}

TEST_F(GalleryWindow, ADragScrollsAndFliesOn) {
    open("scrolling");
    expectShows("scrolling");
    // The finger goes a third of the way; the flight the rest.
    drag({60, 640}, {60, 110}, 0.1);
    expectShows("scrolling-end");
}

TEST_F(GalleryWindow, ADragFromTheLeftEdgeGoesBack) {
    open("navigation");
    expectShows("navigation");
    const auto across = [&](double from, double to) {
        const Point origin = windowOrigin();
        display_.dragAcross(static_cast<int>(origin.x + from * scale),
                            static_cast<int>(origin.x + to * scale),
                            static_cast<int>(origin.y + 560 * scale));
    };
    across(60, 330);
    expectShows("navigation");
    across(3, 330);
    expectShows("home");
}

TEST(GalleryProgram, OpensAScreenByItsURL) {
    const std::string begin = "cd $(mktemp -d) && " + galleryProgram() + " --shot ";
    EXPECT_EQ(runCommand(begin + "--open 'app:///DetailPage.page?id=7'").output,
              "out/gallery/open.png\n");
    const CommandResult nothing = runCommand(begin + "--open /Nowhere");
    EXPECT_EQ(nothing.status, 2);
    EXPECT_NE(nothing.output.find("nothing opens at /Nowhere"), std::string::npos);
}

TEST(GalleryProgram, FallsBackToPicturesWithOneLineWhenThereIsNoDisplay) {
    const std::string begin = "cd $(mktemp -d) && " + galleryProgram();
    const std::vector<std::string> noDisplay{"DISPLAY=:65535",
                                             "WAYLAND_DISPLAY=", "SDL_VIDEODRIVER=x11"};
    const CommandResult pictures =
        runCommand(begin + " --page device 2>err; wc -l <err", noDisplay);
    EXPECT_NE(pictures.output.find("out/gallery/device.png\n1\n"), std::string::npos)
        << pictures.output;
    EXPECT_EQ(runCommand(begin + " --window", noDisplay).status, 1);
    EXPECT_EQ(runCommand(begin + " --page device", {"DISPLAY=", "WAYLAND_DISPLAY="}).output,
              "out/gallery/device.png\n");
}

TEST(GalleryProgram, WrongArgumentsGetAClearErrorAndTheUsage) {
    const struct {
        std::string arguments;
        std::string error;
    } cases[] = {
        {"--pages", "unknown argument --pages"},
        {"--page", "--page needs a value"},
        {"--open", "--open needs a value"},
        {"--open 'no url'", "no url is no URL"},
        {"--page nowhere", "there is no page nowhere"},
        {"--device toaster", "there is no device toaster"},
        {"home", "unknown argument home"},
    };
    for (const auto& [arguments, error] : cases) {
        const CommandResult result = runCommand(galleryProgram() + " " + arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_NE(result.output.find(error), std::string::npos) << result.output;
        EXPECT_NE(result.output.find("usage:"), std::string::npos) << result.output;
    }
    EXPECT_EQ(runCommand(galleryProgram() + " --list").status, 0);
}

}  // namespace
}  // namespace zn
