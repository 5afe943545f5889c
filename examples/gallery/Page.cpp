#include "Page.h"

#include <zarnic/platform/uikit/UIScreen.h>

#include <cmath>

#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

/// A drag scrolls also when it begins on a row or a button.
class Column : public UIScrollView {
    ZN_OBJECT(Column, UIScrollView)
public:
    using UIScrollView::UIScrollView;
    bool touchesShouldCancelInContentView(const Ref<UIView>&) override { return true; }
};

}  // namespace

void PageController::viewDidLoad() {
    ZNViewController::viewDidLoad();
    view()->setBackgroundColor(theme::background());
    content_ = make<Column>(view()->bounds());
    view()->addSubview(content_);
    rebuild();
}

void PageController::rebuild() {
    while (!content_->subviews().empty())
        content_->subviews().back()->removeFromSuperview();
    // A screen without a bar reaches up under the status bar.
    const double top = navigationBarHide() ? UIScreen::mainScreen()->profile().statusBarHeight : 0;
    bottom_ = top + theme::margin;
    build();
    view()->setNeedsLayout();
}

void PageController::viewDidLayoutSubviews() {
    ZNViewController::viewDidLayoutSubviews();
    content_->setFrame(view()->bounds());
    const double below = theme::margin + UIScreen::mainScreen()->profile().safeBottom;
    content_->setContentSize({view()->bounds().width(), bottom_ - theme::gap + below});
}

void PageController::showEnd() {
    content_->scrollRectToVisible({0, content_->contentSize().height - 1, 1, 1}, false);
}

double PageController::contentWidth() {
    return UIScreen::mainScreen()->bounds().width() - 2 * theme::margin;
}

void PageController::addText(std::string_view text) {
    const auto label = theme::label(text, theme::body(), theme::quietInk(), {}, contentWidth());
    label->setNumberOfLines(0);
    label->sizeToFit();
    add(label);
}

void PageController::addHeading(std::string_view text) {
    bottom_ += theme::gap / 2;
    add(theme::label(text, theme::heading(), theme::quietInk(), {}, contentWidth()));
    bottom_ -= theme::gap / 3;
}

void PageController::add(const Ref<UIView>& view) {
    const Rect frame = view->frame();
    view->setFrame(Rect({theme::margin, bottom_}, frame.size));
    content_->addSubview(view);
    bottom_ += frame.height() + theme::gap;
}

}  // namespace gallery
