#include "platform/uikit/text/TextCanvas.h"

#include <cmath>

#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {
namespace {

constexpr Size tileSize{512, 64};
/// Letters may stick out of the text's box by so many points.
constexpr double overhang = 16;
/// Seconds that the caret is on, and off.
constexpr double blinkInterval = 0.5;

int tileIndex(double place, double side) {
    return static_cast<int>(std::floor(place / side));
}

}  // namespace

class TextCanvas::TextTile : public UIView {
    ZN_OBJECT(TextTile, UIView)
public:
    TextTile(const Rect& frame, const Painter& painter) : UIView(frame), painter_(painter) {}

    void init() override {
        UIView::init();
        setOpaque(false);
    }
    bool drawsRect() const override { return true; }
    void drawRect(const Rect&) override {
        if (!painter_)
            return;
        const auto context = UIGraphicsGetCurrentContext();
        const Point origin = frame().origin;
        context->translate(-origin.x, -origin.y);
        painter_(context, frame());
    }

private:
    const Painter& painter_;
};

TextCanvas::TextCanvas(Painter painter) : UIView(Rect()), painter_(std::move(painter)) {}

TextCanvas::~TextCanvas() {
    if (blinking_)
        blinking_->invalidate();
}

void TextCanvas::init() {
    UIView::init();
    setUserInteractionEnabled(false);
    caret_ = make<UIView>(Rect());
    caret_->layer()->setCornerRadius(1);
    caret_->setHidden(true);
    addSubview(caret_);
    tintColorDidChange();
}

void TextCanvas::show(const Rect& visible, Size content) {
    const Rect needed = visible.intersection(Rect(Point{}, content).insetBy(-overhang, -overhang));
    std::map<Place, Ref<TextTile>> kept;
    if (!needed.isEmpty())
        for (int y = tileIndex(needed.minY(), tileSize.height); y * tileSize.height < needed.maxY();
             ++y)
            for (int x = tileIndex(needed.minX(), tileSize.width);
                 x * tileSize.width < needed.maxX(); ++x) {
                Ref<TextTile> tile;
                if (const auto found = tiles_.find({x, y}); found != tiles_.end())
                    tile = found->second;
                else
                    tile = make<TextTile>(Rect({x * tileSize.width, y * tileSize.height}, tileSize),
                                          painter_);
                if (!tile->superview())
                    insertSubviewBelow(tile, caret_);
                kept.emplace(Place{x, y}, tile);
            }
    for (const auto& [place, tile] : tiles_)
        if (!kept.contains(place))
            tile->removeFromSuperview();
    tiles_ = std::move(kept);
}

void TextCanvas::invalidate(TextFlow::Band band) {
    for (const auto& [place, tile] : tiles_)
        if (tile->frame().maxY() >= band.top - overhang &&
            tile->frame().minY() <= band.bottom + overhang)
            tile->setNeedsDisplay();
}

void TextCanvas::invalidateAll() {
    for (const auto& [place, tile] : tiles_)
        tile->setNeedsDisplay();
}

void TextCanvas::showCaret(const Rect& place) {
    caret_->setFrame(place);
    caret_->setHidden(false);
    if (!blinking_) {
        const WeakRef<TextCanvas> weak = ref(this);
        blinking_ = NSTimer::timerWithTimeInterval(blinkInterval, true, [weak](const auto&) {
            if (const auto canvas = weak.lock())
                canvas->blink();
        });
        NSRunLoop::mainRunLoop()->addTimer(blinking_, NSRunLoopMode::Common);
    }
    blinking_->setFireDate(NSDate::dateWithTimeIntervalSinceNow(blinkInterval));
}

void TextCanvas::hideCaret() {
    caret_->setHidden(true);
    if (blinking_)
        blinking_->invalidate();
    blinking_ = nullptr;
}

void TextCanvas::blink() {
    caret_->setHidden(!caret_->hidden());
}

void TextCanvas::tintColorDidChange() {
    caret_->setBackgroundColor(tintColor());
}

}  // namespace zn
