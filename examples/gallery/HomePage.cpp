#include "HomePage.h"

#include <zarnic/platform/uikit/UINavigationController.h>

#include "CodesPage.h"
#include "ColorsPage.h"
#include "DevicePage.h"
#include "DownloadsPage.h"
#include "DrawingPage.h"
#include "ImagesPage.h"
#include "LanguagePage.h"
#include "NavigationPage.h"
#include "NotesPage.h"
#include "RoutesPage.h"
#include "RowList.h"
#include "ScrollingPage.h"
#include "ServicesPage.h"
#include "TextPage.h"
#include "ToastPage.h"

using namespace zn;

namespace gallery {

void HomePage::init() {
    PageController::init();
    setTitle("Gallery");
}

void HomePage::build() {
    const WeakRef<HomePage> weak = ref(this);
    const auto open = [weak](auto makePage) {
        return [weak, makePage] {
            if (const auto home = weak.lock())
                home->navigationController()->pushViewController(makePage(), true);
        };
    };
    addText("What the library draws and does, one page each.");
    add(make<RowList>(
        Point{}, contentWidth(),
        std::vector<Row>{
            {"Toast", "Messages that come and go", open([] { return make<ToastPage>(); })},
            {"Drawing", "Grids, gradients, shadows, pixels",
             open([] { return make<DrawingPage>(); })},
            {"Navigation", "Push, pop, bars that hide",
             open([] { return make<NavigationPage>(); })},
            {"Codes", "QR codes and bar codes", open([] { return make<CodesPage>(); })},
            {"Colours", "Hexadecimal texts, light or dark",
             open([] { return make<ColorsPage>(); })},
            {"Images", "Tints, scalings, captures, icons", open([] { return make<ImagesPage>(); })},
            {"Downloads", "Pictures from a web server", open([] { return make<DownloadsPage>(); })},
            {"Text", "Fields, text views, a keyboard", open([] { return make<TextPage>(); })},
            {"Scrolling", "Pages, rows and a long list",
             open([] { return make<ScrollingPage>(); })},
            {"Language", "Switched while it runs", open([] { return make<LanguagePage>(); })},
            {"Services", "Bluetooth, the lock, fonts", open([] { return make<ServicesPage>(); })},
            {"Notes", "A list kept in the database", open([] { return make<NotesPage>(); })},
            {"Device", "The machine and its metrics", open([] { return make<DevicePage>(); })},
            {"Routes", "By name, by URL, from below", open([] { return make<RoutesPage>(); })},
        }));
}

}  // namespace gallery
