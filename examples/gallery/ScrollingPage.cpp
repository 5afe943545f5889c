#include "ScrollingPage.h"

#include <zarnic/UIView+ZNCategory.h>
#include <zarnic/platform/layers/CAGradientLayer.h>

#include <cmath>

#include "RowList.h"
#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double cardHeight = 132;
constexpr double dotSize = 7;
constexpr double dotGap = 9;
constexpr Size tileSize{104, 76};
constexpr int tiles = 12;
constexpr int rows = 40;

struct Scenery {
    const char* title;
    const char* detail;
    CGColor from;
    CGColor to;
};

const Scenery sceneries[] = {
    {"One", "A flick turns one page", {0.15, 0.38, 0.88, 1}, {0.49, 0.36, 0.91, 1}},
    {"Two", "A slow drag, the nearest", {0.10, 0.62, 0.60, 1}, {0.15, 0.45, 0.85, 1}},
    {"Three", "The ends are elastic", {0.93, 0.45, 0.25, 1}, {0.95, 0.66, 0.24, 1}},
    {"Four", "The last one", {0.80, 0.28, 0.50, 1}, {0.52, 0.30, 0.80, 1}},
};
constexpr int pageCount = static_cast<int>(std::size(sceneries));

Ref<UIView> gradientBox(Size size, const CGColor& from, const CGColor& to) {
    const auto box = make<UIView>(Rect({}, size));
    const auto gradient = make<CAGradientLayer>();
    gradient->setFrame(box->bounds());
    gradient->setColors({from, to});
    gradient->setStartPoint({0, 0});
    gradient->setEndPoint({1, 1});
    gradient->setCornerRadius(theme::cornerRadius);
    box->layer()->addSublayer(gradient);
    return box;
}

Ref<UIView> tile(int index) {
    const double hue = static_cast<double>(index) / tiles;
    const auto part = [hue](double shift) { return 0.62 + 0.3 * std::sin(6.28 * (hue + shift)); };
    const CGColor from{part(0), part(0.33), part(0.67), 1};
    const CGColor to{from.red * 0.8, from.green * 0.8, from.blue * 0.8, 1};
    const auto box = gradientBox(tileSize, from, to);
    const auto number = theme::label(std::to_string(index + 1),
                                     UIFont::systemFontOfSize(24, UIFontWeight::Semibold),
                                     UIColor::whiteColor(), {0, 22}, tileSize.width);
    number->setTextAlignment(NSTextAlignment::Center);
    box->addSubview(number);
    return box;
}

}  // namespace

void ScrollingPage::init() {
    PageController::init();
    setTitle("Scrolling");
}

void ScrollingPage::build() {
    addHeading("PAGES");
    addPages();
    addHeading("A ROW INSIDE THE PAGE");
    addRow();
    addHeading("A LONG LIST");
    addList();
}

Ref<UIView> ScrollingPage::card(int index, Size size) {
    const Scenery& scenery = sceneries[index];
    const auto box = gradientBox({size.width - theme::gap, size.height}, scenery.from, scenery.to);
    const double width = box->bounds().width() - 2 * theme::padding;
    box->addSubview(theme::label(scenery.title, UIFont::systemFontOfSize(28, UIFontWeight::Bold),
                                 UIColor::whiteColor(), {theme::padding, 66}, width));
    box->addSubview(theme::label(scenery.detail, theme::body(),
                                 UIColor::colorWithRed(1, 1, 1, 0.85), {theme::padding, 101},
                                 width));
    box->setFrame(Rect({index * size.width, 0}, box->bounds().size));
    return box;
}

void ScrollingPage::addPages() {
    // A page is a card and the gap after it.
    const Size page{contentWidth() + theme::gap, cardHeight};
    const auto holder = make<UIView>(Rect(0, 0, contentWidth(), cardHeight + 22));
    cards_ = make<UIScrollView>(Rect({}, page));
    cards_->setContentSize({pageCount * page.width, page.height});
    cards_->setPagingEnabled(true);
    cards_->setShowsHorizontalScrollIndicator(false);
    cards_->setClipsToBounds(false);
    cards_->setScrollsToTop(false);
    holder->addSubview(cards_);
    const double dots = pageCount * dotSize + (pageCount - 1) * dotGap;
    for (int index = 0; index < pageCount; ++index) {
        cards_->addSubview(card(index, page));
        const double x = (contentWidth() - dots) / 2 + index * (dotSize + dotGap);
        const auto dot = make<UIView>(Rect(x, cardHeight + 13, dotSize, dotSize));
        dot->layer()->setCornerRadius(dotSize / 2);
        holder->addSubview(dot);
        dots_.push_back(dot);
    }
    cards_->setDelegate(as<ScrollingPage>(ref(this)));
    scrollViewDidScroll(cards_);
    add(holder);
}

void ScrollingPage::scrollViewDidScroll(const Ref<UIScrollView>& scrollView) {
    const auto page = std::lround(scrollView->contentOffset().x / scrollView->bounds().width());
    for (std::size_t index = 0; index < dots_.size(); ++index)
        dots_[index]->setBackgroundColor(static_cast<long>(index) == page
                                             ? theme::accent()
                                             : UIColor::colorWithRed(0.1, 0.12, 0.15, 0.2));
}

void ScrollingPage::addRow() {
    const double step = tileSize.width + theme::gap;
    // From one edge of the screen to the other.
    const auto holder = make<UIView>(Rect(0, 0, contentWidth(), tileSize.height));
    const auto row = make<UIScrollView>(
        Rect(-theme::margin, 0, contentWidth() + 2 * theme::margin, tileSize.height));
    row->setContentSize({tiles * step - theme::gap, tileSize.height});
    row->setContentInset({0, theme::margin, 0, theme::margin});
    row->setContentOffset({-theme::margin, 0});
    row->setShowsHorizontalScrollIndicator(false);
    row->setScrollsToTop(false);
    for (int index = 0; index < tiles; ++index) {
        const auto box = tile(index);
        box->setFrame(Rect({index * step, 0}, tileSize));
        row->addSubview(box);
    }
    holder->addSubview(row);
    add(holder);
}

void ScrollingPage::addList() {
    std::vector<Row> list;
    for (int index = 1; index <= rows; ++index)
        list.push_back(
            {"Row " + std::to_string(index), std::to_string(index * 44) + " points", {}});
    add(make<RowList>(Point{}, contentWidth(), std::move(list)));
}

}  // namespace gallery
