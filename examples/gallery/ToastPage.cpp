#include "ToastPage.h"

#include <zarnic/ZNPromptWindow.h>

#include "RowList.h"
#include "Theme.h"

using namespace zn;

namespace gallery {

ZN_REGISTER_CLASS(ToastPage);

void ToastPage::init() {
    PageController::init();
    setTitle("Toast");
}

void ToastPage::build() {
    addText(
        "A message in a window of its own that comes, stays as long as it takes to read, and "
        "goes. Touches beside it reach the application.");
    addHeading("MESSAGES");
    const auto show = [](const char* text) { return [text] { ZNPromptWindow::ShowMsg(text); }; };
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {"A short one", "Two to four seconds, by its length", show(shortText)},
                          {"A long one", "Wraps at three fifths of the screen", show(longText)},
                          {"A Chinese one", "中文提示", show(chineseText)},
                      }));
    addHeading("AROUND THEM");
    // A keyboard comes up for what takes text, be it ever so small.
    field_ = make<UITextField>(Rect());
    view()->addSubview(field_);
    const WeakRef<ToastPage> weak = ref(this);
    add(make<RowList>(Point{}, contentWidth(),
                      std::vector<Row>{
                          {"Lock the screen", "Dims it and catches the touches",
                           [] { ZNPromptWindow::ShowMsg(lockText, 3, true, false, 1); }},
                          {"Show or hide a keyboard", "Toasts keep above it",
                           [weak] {
                               if (const auto page = weak.lock())
                                   page->toggleKeyboard();
                           }},
                      }));
}

void ToastPage::toggleKeyboard() {
    if (field_->isFirstResponder())
        field_->resignFirstResponder();
    else
        field_->becomeFirstResponder();
}

}  // namespace gallery
