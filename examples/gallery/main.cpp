#include <zarnic/ZNControllerHelper.h>
#include <zarnic/ZNNavigationController.h>
#include <zarnic/platform/drawing/UIFont.h>
#include <zarnic/platform/uikit/UIApplication.h>
#include <zarnic/platform/uikit/UIWindow.h>
#include <zarnic/sdl/SdlHost.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "DetailPage.h"
#include "HomePage.h"
#include "Options.h"
#include "Shots.h"

using namespace zn;

namespace {

using gallery::Options;

bool displayNamed() {
    const auto set = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return set("DISPLAY") || set("WAYLAND_DISPLAY");
}

Ref<UIViewController> rootFor(const Options& options) {
    const auto navigation = make<ZNNavigationController>(make<gallery::HomePage>());
    ZNControllerHelper::RegisterRootNavigationController(navigation);
    const gallery::Page* page = gallery::pageNamed(options.page);
    if (page != nullptr && page->name != "home")
        navigation->pushViewController(page->make(), false);
    return navigation;
}

int runWindow(SdlHost& host, const Options& options) {
    const auto window = make<UIWindow>(UIScreen::mainScreen()->bounds());
    window->setRootViewController(rootFor(options));
    if (options.open && !gallery::openURL(options.open))
        return 2;
    window->makeKeyAndVisible();
    UIApplication::sharedApplication()->setShowsKeyboardPanel(!options.device.tablet);
    host.run();
    return 0;
}

int show(const Options& options) {
    if (options.mode == Options::Mode::Shot ||
        (options.mode == Options::Mode::Automatic && !displayNamed()))
        return gallery::drawShots(options);
    std::string problem;
    if (const auto host = SdlHost::open("Zarnic gallery", options.device, problem))
        return runWindow(*host, options);
    if (options.mode == Options::Mode::Window) {
        std::fprintf(stderr, "no window: %s\n", problem.c_str());
        return 1;
    }
    std::fprintf(stderr, "no window (%s), so drawing pictures\n", problem.c_str());
    return gallery::drawShots(options);
}

}  // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + 1, values + count);
    const auto [options, error] = gallery::parseOptions(arguments);
    if (error) {
        std::fprintf(stderr, "%s\n%s", error->c_str(), gallery::usage().c_str());
        return 2;
    }
    if (options.help || options.list) {
        std::printf("%s", options.help ? gallery::usage().c_str() : gallery::listing().c_str());
        return 0;
    }
    if (const auto missing = missingFontsMessage()) {
        std::fprintf(stderr, "%s\n", missing->c_str());
        return 1;
    }
    return show(options);
}
