#include <zarnic/ZNPromptWindow.h>

#include <algorithm>

#include "DevicePage.h"
#include "DrawingPage.h"
#include "HomePage.h"
#include "NavigationPage.h"
#include "ToastPage.h"

using namespace zn;

namespace gallery {
namespace {

/// Longer than any fade or transition.
constexpr double settled = 0.6;

double nothing() {
    return 0;
}

double rest(const Ref<PageController>&) {
    return settled;
}

double hideToast() {
    ZNPromptWindow::Hide();
    return settled;
}

Page toast(const std::string& name, std::string summary, const char* text, bool lock,
           bool keyboard) {
    const auto pose = [text, lock, keyboard](const Ref<PageController>& page) {
        if (keyboard)
            as<ToastPage>(page)->toggleKeyboard();
        if (lock)
            ZNPromptWindow::ShowMsg(text, 4, true, false, 1);
        else
            ZNPromptWindow::ShowMsg(text);
        return settled;
    };
    const auto leave = [keyboard] {
        if (keyboard)
            make<ToastPage>()->toggleKeyboard();
        return hideToast();
    };
    return {"toast-" + name,
            "Toast",
            std::move(summary),
            [] { return make<ToastPage>(); },
            pose,
            leave};
}

template <class T>
Page plain(std::string name, std::string title, std::string summary) {
    return {std::move(name), std::move(title), std::move(summary), [] { return make<T>(); }, rest,
            nothing};
}

/// A navigation page with one more screen pushed, after so many seconds of the push.
Page pushed(const std::string& name, std::string summary, void (NavigationPage::*push)(),
            double after) {
    const auto pose = [push, after](const Ref<PageController>& page) {
        (as<NavigationPage>(page).get()->*push)();
        return after;
    };
    return {"navigation-" + name,
            "Navigation",
            std::move(summary),
            [] { return make<NavigationPage>(); },
            pose,
            [] { return settled; }};
}

}  // namespace

const std::vector<Page>& pages() {
    static const std::vector<Page> all{
        plain<HomePage>("home", "Gallery", "the list of pages"),
        plain<ToastPage>("toast", "Toast", "messages of every kind"),
        toast("short", "a short message", ToastPage::shortText, false, false),
        toast("long", "a long message that wraps", ToastPage::longText, false, false),
        toast("chinese", "a Chinese message", ToastPage::chineseText, false, false),
        toast("locked", "a message that dims and locks the screen", ToastPage::lockText, true,
              false),
        toast("keyboard", "a message above a shown keyboard", ToastPage::shortText, false, true),
        plain<DrawingPage>("drawing", "Drawing", "grid, gradients, shadow, snapshot, pixel colour"),
        plain<NavigationPage>("navigation", "Navigation", "screens that push one another"),
        pushed("push", "a push half-way", &NavigationPage::push, 0.1),
        pushed("second", "a second screen", &NavigationPage::push, settled),
        pushed("hidden", "a screen without a bar", &NavigationPage::pushWithoutBar, settled),
        plain<DevicePage>("device", "Device", "the machine and its screen metrics"),
    };
    return all;
}

const Page* pageNamed(std::string_view name) {
    const auto found = std::find_if(pages().begin(), pages().end(),
                                    [name](const Page& page) { return page.name == name; });
    return found == pages().end() ? nullptr : &*found;
}

}  // namespace gallery
