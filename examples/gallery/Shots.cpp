#include "Shots.h"

#include <zarnic/ZNControllerHelper.h>
#include <zarnic/ZNNavigationController.h>
#include <zarnic/platform/drawing/TextLayout.h>
#include <zarnic/platform/foundation/ManualClock.h>
#include <zarnic/platform/host/HeadlessHost.h>
#include <zarnic/platform/uikit/UIApplication.h>
#include <zarnic/platform/uikit/UIWindow.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "DetailPage.h"
#include "HomePage.h"
#include "Page.h"
#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double sheetWidth = 250;
constexpr double sheetGap = 24;
constexpr double captionHeight = 28;
constexpr std::size_t sheetColumns = 4;

struct Shot {
    std::string name;
    Ref<UIImage> picture;
};

bool write(const Ref<UIImage>& picture, const std::filesystem::path& path) {
    const auto bytes = UIImagePNGRepresentation(picture);
    std::ofstream file(path, std::ios::binary);
    if (bytes)
        file.write(reinterpret_cast<const char*>(bytes->data()),
                   static_cast<std::streamsize>(bytes->size()));
    if (bytes && file.flush()) {
        std::printf("%s\n", path.c_str());
        return true;
    }
    std::fprintf(stderr, "cannot write %s\n", path.c_str());
    return false;
}

/// The page on top of the list of pages, as in the window.
Shot shoot(const Page& page, HeadlessHost& host, ManualClock& clock) {
    const auto window = make<UIWindow>(UIScreen::mainScreen()->bounds());
    const auto screen = page.make();
    const auto navigation = make<ZNNavigationController>(make<HomePage>());
    ZNControllerHelper::RegisterRootNavigationController(navigation);
    if (as<HomePage>(screen) == nullptr)
        navigation->pushViewController(screen, false);
    window->setRootViewController(navigation);
    window->makeKeyAndVisible();
    clock.settle();
    clock.advance(page.pose(screen));
    Shot shot{page.name, host.snapshot()};
    clock.advance(page.leave());
    window->setHidden(true);
    clock.settle();
    return shot;
}

void drawCaption(const std::string& text, Point place) {
    drawText(text, Rect(place.x, place.y, sheetWidth, captionHeight),
             TextStyle{theme::note(), NSTextAlignment::Center, NSLineBreakMode::WordWrapping, 1},
             theme::quietInk()->cgColor());
}

Ref<UIImage> contactSheet(const std::vector<Shot>& shots) {
    const std::size_t columns = std::min(sheetColumns, shots.size());
    const std::size_t rows = (shots.size() + columns - 1) / columns;
    const Size screen = UIScreen::mainScreen()->bounds().size;
    const Size picture{sheetWidth, std::round(sheetWidth * screen.height / screen.width)};
    const Size cell{picture.width + sheetGap, picture.height + captionHeight + sheetGap};
    UIGraphicsBeginImageContextWithOptions({static_cast<double>(columns) * cell.width + sheetGap,
                                            static_cast<double>(rows) * cell.height + sheetGap},
                                           true, 2);
    UIColor::colorWithRed(0.88, 0.89, 0.92, 1)->setFill();
    UIRectFill({0, 0, 1e6, 1e6});
    UIGraphicsGetCurrentContext()->setInterpolationQuality(CGInterpolationQuality::High);
    for (std::size_t index = 0; index < shots.size(); ++index) {
        const std::size_t row = index / columns;
        const Point place{sheetGap + static_cast<double>(index % columns) * cell.width,
                          sheetGap + static_cast<double>(row) * cell.height};
        shots[index].picture->drawInRect(Rect(place, picture));
        drawCaption(shots[index].name, {place.x, place.y + picture.height + 6});
    }
    const auto sheet = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return sheet;
}

/// The screen that a URL names.
int drawOpened(const Ref<NSURL>& url, HeadlessHost& host, ManualClock& clock,
               const std::filesystem::path& path) {
    bool opened = false;
    const Page page{"open",
                    "",
                    "",
                    [] { return make<HomePage>(); },
                    [&](const Ref<PageController>&) {
                        opened = openURL(url);
                        return 1.0;
                    },
                    [] { return 0.0; }};
    const Shot shot = shoot(page, host, clock);
    if (!opened)
        return 2;
    return write(shot.picture, path) ? 0 : 1;
}

}  // namespace

int drawShots(const Options& options) {
    // Begins at the real time and goes on by itself: the pictures of a run do not wait.
    const auto clock = std::make_shared<ManualClock>(SystemClock().now());
    Clock::setShared(clock);
    HeadlessHost host(options.device);
    UIApplication::sharedApplication()->setShowsKeyboardPanel(!options.device.tablet);
    const std::filesystem::path folder = "out/gallery";
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    std::vector<Shot> shots;
    bool written = true;
    if (options.open)
        return drawOpened(options.open, host, *clock, folder / "open.png");
    for (const Page& page : pages()) {
        if (!options.page.empty() && page.name != options.page)
            continue;
        shots.push_back(shoot(page, host, *clock));
        written = write(shots.back().picture, folder / (page.name + ".png")) && written;
    }
    if (shots.size() > 1)
        written = write(contactSheet(shots), folder / "contact-sheet.png") && written;
    return written ? 0 : 1;
}

}  // namespace gallery
