#include <zarnic/ZNLanguageHelper.h>
#include <zarnic/ZNPromptWindow.h>
#include <zarnic/platform/uikit/UIApplication.h>

#include <algorithm>
#include <memory>

#include "CodesPage.h"
#include "ColorsPage.h"
#include "DevicePage.h"
#include "DownloadsPage.h"
#include "DrawingPage.h"
#include "HomePage.h"
#include "ImagesPage.h"
#include "LanguagePage.h"
#include "NavigationPage.h"
#include "NotesPage.h"
#include "RoutePages.h"
#include "ScrollingPage.h"
#include "ServicesPage.h"
#include "TextPage.h"
#include "ToastPage.h"

using namespace zn;

namespace gallery {
namespace {

/// Longer than any fade or transition.
constexpr double settled = 0.6;
/// The same, at a moment when a caret that blinks is to be seen.
constexpr double caretShown = 1.2;

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

void hideKeyboard() {
    if (const auto first = UIApplication::sharedApplication()->firstResponder())
        first->resignFirstResponder();
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
            hideKeyboard();
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

/// A page at the end of its column.
template <class T>
Page atEnd(std::string name, std::string title, std::string summary) {
    const auto pose = [](const Ref<PageController>& page) {
        page->showEnd();
        return settled;
    };
    return {std::move(name), std::move(title), std::move(summary), [] { return make<T>(); }, pose,
            nothing};
}

/// The scrolling page under a finger that goes from one place to another and stays there.
Page dragged(const std::string& name, std::string summary, Point from, Point to) {
    const auto pose = [from, to](const Ref<PageController>&) {
        const auto application = UIApplication::sharedApplication();
        application->touchDown(1, from);
        application->touchMove(1, to);
        return 0.1;
    };
    return {"scrolling-" + name,
            "Scrolling",
            std::move(summary),
            [] { return make<ScrollingPage>(); },
            pose,
            [] {
                UIApplication::sharedApplication()->touchCancel(1);
                return settled;
            }};
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

/// The note at the top of the list.
Page openNote() {
    const auto pose = [](const Ref<PageController>& page) {
        as<NotesPage>(page)->openFirst();
        return settled;
    };
    return {
        "notes-open",          "Notes", "one of the notes", [] { return make<NotesPage>(); }, pose,
        [] { return settled; }};
}

/// The text page after something was done there, without the toast or with one.
Page text(const std::string& name, std::string summary, void (TextPage::*act)(), bool toasts) {
    const auto pose = [act, toasts](const Ref<PageController>& page) {
        (as<TextPage>(page).get()->*act)();
        if (toasts)
            ZNPromptWindow::ShowMsg(ToastPage::shortText);
        return caretShown;
    };
    const auto leave = [] {
        hideKeyboard();
        return hideToast();
    };
    return {"text-" + name, "Text", std::move(summary), [] { return make<TextPage>(); },
            pose,           leave};
}

/// What the user had chosen comes back when the picture is taken.
Page language(const std::string& localization, std::string summary) {
    const auto chosen = std::make_shared<std::string>();
    const auto pose = [localization, chosen](const Ref<PageController>& page) {
        const auto languages =
            ZNLanguageHelper::AppLanguage().value_or(ZNLanguageHelper::LanguageTable());
        const auto found = languages.find(ZNLanguageHelper::LanguageCode());
        *chosen = found == languages.end() || found->first < 0 ? "" : found->second;
        as<LanguagePage>(page)->choose(localization);
        return settled;
    };
    const auto leave = [chosen] {
        const auto code = ZNLanguageHelper::LanguageCodeViaKey(*chosen);
        ZNLanguageHelper::SetAppLanguageViaCode(code, {});
        return settled;
    };
    return {"language-" + localization,          "Language", std::move(summary),
            [] { return make<LanguagePage>(); }, pose,       leave};
}

std::vector<Page> withRoutes(std::vector<Page> all) {
    const std::vector<Page> routes = routePages();
    all.insert(all.end(), routes.begin(), routes.end());
    return all;
}

}  // namespace

const std::vector<Page>& pages() {
    static const std::vector<Page> all = withRoutes({
        plain<HomePage>("home", "Gallery", "the list of pages"),
        plain<ToastPage>("toast", "Toast", "messages of every kind"),
        toast("short", "a short message", ToastPage::shortText, false, false),
        toast("long", "a long message that wraps", ToastPage::longText, false, false),
        toast("chinese", "a Chinese message", ToastPage::chineseText, false, false),
        toast("locked", "a message that dims and locks the screen", ToastPage::lockText, true,
              false),
        toast("keyboard", "a message above a shown keyboard", ToastPage::shortText, false, true),
        plain<TextPage>("text", "Text", "fields, a text view with a placeholder, fonts"),
        text("selection", "a selected word above the keyboard", &TextPage::editName, false),
        text("composition", "a composition in a text view", &TextPage::writeNote, false),
        text("toast", "a toast above the keyboard", &TextPage::editName, true),
        plain<DrawingPage>("drawing", "Drawing", "grid, gradients, shadow, snapshot, pixel colour"),
        plain<CodesPage>("codes", "Codes", "QR code, bar code, a recoloured picture"),
        plain<ColorsPage>("colours", "Colours", "hexadecimal texts, light or dark, chance"),
        plain<ImagesPage>("images", "Images", "tint, scale, crop, capture, application icons"),
        plain<DownloadsPage>("downloads", "Downloads",
                             "pictures from a web server, two of them bad"),
        atEnd<DownloadsPage>("downloads-use", "Downloads", "what memory and files hold of them"),
        plain<NavigationPage>("navigation", "Navigation", "screens that push one another"),
        pushed("push", "a push half-way", &NavigationPage::push, 0.1),
        pushed("second", "a second screen", &NavigationPage::push, settled),
        pushed("hidden", "a screen without a bar", &NavigationPage::pushWithoutBar, settled),
        plain<ScrollingPage>("scrolling", "Scrolling", "pages, a row and a long list"),
        atEnd<ScrollingPage>("scrolling-end", "Scrolling", "the end of the list"),
        dragged("down", "the list dragged up by a finger", {60, 600}, {60, 220}),
        dragged("pulled", "pulled beyond the top", {60, 520}, {60, 760}),
        dragged("pages", "half-way between two pages", {300, 180}, {130, 180}),
        language("en", "its texts in English"),
        language("zh-Hans", "its texts in Chinese"),
        language("ar", "its texts in Arabic, from the right"),
        plain<ServicesPage>("services", "Services", "Bluetooth, the screen lock, a font of a file"),
        plain<NotesPage>("notes", "Notes", "a list kept in the database"),
        openNote(),
        plain<DevicePage>("device", "Device", "the machine and its screen metrics"),
    });
    return all;
}

const Page* pageNamed(std::string_view name) {
    const auto found = std::find_if(pages().begin(), pages().end(),
                                    [name](const Page& page) { return page.name == name; });
    return found == pages().end() ? nullptr : &*found;
}

}  // namespace gallery
