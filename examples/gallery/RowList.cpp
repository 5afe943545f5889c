#include "RowList.h"

#include <zarnic/platform/layers/CAShapeLayer.h>

#include "Theme.h"

using namespace zn;

namespace gallery {
namespace {

constexpr double rowHeight = 60;
constexpr double factHeight = 44;
constexpr Size chevronSize{7, 12};

/// A row that reacts to a finger.
class RowControl : public UIControl {
    ZN_OBJECT(RowControl, UIControl)
public:
    RowControl(const Rect& frame, Row row) : UIControl(frame), row_(std::move(row)) {}

    void init() override {
        UIControl::init();
        if (row_.tapped)
            buildButton();
        else
            buildFact();
    }

    void setHighlighted(bool highlighted) override {
        UIControl::setHighlighted(highlighted);
        setBackgroundColor(highlighted ? theme::accentSoft() : UIColor::clearColor());
    }

    void tapped() { row_.tapped(); }

private:
    double textWidth() const { return bounds().width() - 2 * theme::padding; }

    void buildButton() {
        layer()->setCornerRadius(theme::cornerRadius);
        addSubview(theme::label(row_.title, theme::body(), theme::ink(), {theme::padding, 11},
                                textWidth() - 24));
        addSubview(theme::label(row_.detail, theme::note(), theme::quietInk(), {theme::padding, 32},
                                textWidth() - 24));
        addChevron();
        addTarget(ZN_ACTION(ref(this), tapped), UIControlEvents::TouchUpInside);
    }

    void buildFact() {
        const double y = (bounds().height() - std::ceil(theme::body()->lineHeight())) / 2;
        addSubview(theme::label(row_.title, theme::body(), theme::ink(), {theme::padding, y},
                                textWidth()));
        const auto detail =
            theme::label(row_.detail, theme::body(), theme::quietInk(), {bounds().width() * 0.3, y},
                         bounds().width() * 0.7 - theme::padding);
        detail->setTextAlignment(NSTextAlignment::Right);
        detail->setAdjustsFontSizeToFitWidth(true);
        detail->setMinimumScaleFactor(0.7);
        addSubview(detail);
    }

    void addChevron() {
        const auto chevron = make<CAShapeLayer>();
        CGPath path;
        path.moveTo({1, 1});
        path.lineTo({chevronSize.width - 1, chevronSize.height / 2});
        path.lineTo({1, chevronSize.height - 1});
        chevron->setPath(path);
        chevron->setFillColor({});
        chevron->setStrokeColor({0.75, 0.77, 0.80, 1});
        chevron->setLineWidth(2);
        chevron->setLineCap(CGLineCap::Round);
        chevron->setLineJoin(CGLineJoin::Round);
        chevron->setFrame(Rect({bounds().width() - theme::padding - chevronSize.width,
                                (bounds().height() - chevronSize.height) / 2},
                               chevronSize));
        layer()->addSublayer(chevron);
    }

    Row row_;
};

}  // namespace

RowList::RowList(Point origin, double width, std::vector<Row> rows)
    : origin_(origin), width_(width), rows_(std::move(rows)) {}

void RowList::init() {
    UIView::init();
    double y = 0;
    for (const Row& row : rows_) {
        const double height = row.tapped ? rowHeight : factHeight;
        if (y > 0) {
            const auto line = make<UIView>(Rect(theme::padding, y, width_ - theme::padding, 1));
            line->setBackgroundColor(theme::line());
            addSubview(line);
        }
        addSubview(make<RowControl>(Rect(0, y, width_, height), row));
        y += height;
    }
    setFrame(Rect(origin_.x, origin_.y, width_, y));
    const auto panel = theme::panel(bounds());
    panel->setUserInteractionEnabled(false);
    insertSubviewAtIndex(panel, 0);
}

}  // namespace gallery
