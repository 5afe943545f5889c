#include "DownloadsPage.h"

#include <zarnic/ZNImageHelper.h>

#include <cmath>
#include <cstdio>

#include "RowList.h"
#include "Theme.h"
#include "Tiles.h"

using namespace zn;

namespace gallery {
namespace {

constexpr std::size_t columns = 3;
constexpr std::size_t rows = 4;
constexpr double figureHeight = 44;

/// What a picture is before it is there: a quiet square with a small mountain.
Ref<UIImage> placeholder() {
    constexpr double side = 120;
    UIGraphicsBeginImageContextWithOptions({side, side}, true, 2);
    const auto context = UIGraphicsGetCurrentContext();
    context->setFillColor(theme::line()->cgColor());
    context->fillRect({0, 0, side, side});
    context->setFillColor(CGColor{1, 1, 1, 1});
    context->fillEllipse({34, 38, 14, 14});
    context->moveTo({30, 82});
    context->addLineTo({52, 56});
    context->addLineTo({63, 68});
    context->addLineTo({73, 50});
    context->addLineTo({92, 82});
    context->closePath();
    context->drawPath(CGPathDrawingMode::Fill);
    auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

std::string bytesText(std::int64_t bytes) {
    char text[48];
    if (bytes < 1'000'000)
        std::snprintf(text, sizeof text, "%.0f kB", static_cast<double>(bytes) / 1e3);
    else
        std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(bytes) / 1e6);
    return text;
}

/// One picture never comes, and one is no picture.
std::string nameOf(std::size_t index) {
    if (index == 4)
        return "broken";
    return index == 7 ? "missing" : std::to_string(index) + ".jpg";
}

}  // namespace

DownloadsPage::~DownloadsPage() = default;

void DownloadsPage::init() {
    PageController::init();
    setTitle("Downloads");
    server_ = std::make_unique<PictureServer>();
}

void DownloadsPage::build() {
    addText(
        "Pictures from a web server on this machine. The fifth is never answered, the eighth "
        "is answered with a page of text.");
    addGrid();
    addUse();
    addActions();
    load();
}

void DownloadsPage::addGrid() {
    const double side = tileWidth(contentWidth(), columns);
    pictures_.clear();
    for (std::size_t row = 0; row < rows; ++row) {
        const auto line = make<UIView>(Rect(0, 0, contentWidth(), side));
        for (std::size_t column = 0; column < columns; ++column)
            pictures_.push_back(
                addPicture(line, static_cast<double>(column) * (side + theme::gap), side));
        add(line);
    }
}

Ref<UIImageView> DownloadsPage::addPicture(const Ref<UIView>& row, double x, double side) {
    auto picture = make<UIImageView>(Rect(x, 0, side, side));
    picture->setContentMode(UIViewContentMode::ScaleAspectFill);
    picture->setBackgroundColor(theme::card());
    picture->layer()->setCornerRadius(theme::cornerRadius);
    picture->setClipsToBounds(true);
    row->addSubview(picture);
    return picture;
}

void DownloadsPage::addUse() {
    addHeading("IN USE");
    const auto panel = theme::panel(Rect(0, 0, contentWidth(), 3 * figureHeight));
    memory_ = addFigure(panel, "Memory", 0);
    files_ = addFigure(panel, "Files", figureHeight);
    requests_ = addFigure(panel, "Answered by the server", 2 * figureHeight);
    add(panel);
}

Ref<UILabel> DownloadsPage::addFigure(const Ref<UIView>& panel, std::string_view title, double y) {
    const double width = contentWidth() - 2 * theme::padding;
    const Point place{theme::padding,
                      y + (figureHeight - std::ceil(theme::body()->lineHeight())) / 2};
    panel->addSubview(theme::label(title, theme::body(), theme::ink(), place, width));
    if (y > 0) {
        const auto line = make<UIView>(Rect(theme::padding, y, width + theme::padding, 1));
        line->setBackgroundColor(theme::line());
        panel->addSubview(line);
    }
    auto figure = theme::label("", theme::body(), theme::quietInk(), place, width);
    figure->setTextAlignment(NSTextAlignment::Right);
    panel->addSubview(figure);
    return figure;
}

void DownloadsPage::addActions() {
    const WeakRef<DownloadsPage> weak = ref(this);
    const auto act = [weak](void (DownloadsPage::*action)()) {
        return [weak, action] {
            if (const auto page = weak.lock())
                (page.get()->*action)();
        };
    };
    addHeading("TRY");
    add(make<RowList>(
        Point{}, contentWidth(),
        std::vector<Row>{{"Load again", "From memory, else from files", act(&DownloadsPage::load)},
                         {"Forget what memory holds", "The next load reads the files",
                          act(&DownloadsPage::forget)},
                         {"Delete the files", "The next load asks the server",
                          act(&DownloadsPage::deleteFiles)}}));
}

void DownloadsPage::load() {
    const WeakRef<DownloadsPage> weak = ref(this);
    const auto waiting = placeholder();
    for (std::size_t index = 0; index < pictures_.size(); ++index) {
        ZNImageHelper::DownloadImageFillView(pictures_[index], waiting, server_->url(nameOf(index)),
                                             [weak](const auto&, const auto&) {
                                                 if (const auto page = weak.lock())
                                                     page->showUse();
                                             });
    }
    showUse();
}

void DownloadsPage::showUse() {
    const auto helper = ZNImageHelper::SharedInstance();
    memory_->setText(bytesText(helper->memorySize()) + " of " + bytesText(helper->memoryMaxSize()));
    files_->setText(bytesText(ZNImageHelper::GetAllCachesSize()));
    requests_->setText(std::to_string(server_->served()) + " requests");
}

void DownloadsPage::deleteFiles() {
    const WeakRef<DownloadsPage> weak = ref(this);
    ZNImageHelper::DeleteAllCachesCompleted([weak](bool, std::int64_t) {
        if (const auto page = weak.lock())
            page->showUse();
    });
}

/// The next load finds the files.
void DownloadsPage::forget() {
    const auto helper = ZNImageHelper::SharedInstance();
    const ObjectLock lock(helper->bufMemory());
    helper->bufMemory()->removeAllObjects();
    helper->setMemorySize(0);
    showUse();
}

}  // namespace gallery
