#include "platform/layers/screen/CoverFinder.h"

#include <algorithm>

#include "platform/layers/painting/LayerContents.h"
#include "platform/layers/painting/LayerPainter.h"

namespace zn {
namespace {

bool fills(const LayerState& state, const LayerPlacement& placement, const PixelRect& rect) {
    if (state.backgroundColor.alpha >= 1)
        return clearOfCorners(placement, state.cornerRadius, rect);
    if (!state.contents || !placement.aligned)
        return false;
    double radius = state.masksToBounds ? state.cornerRadius : 0;
    Rect box = contentsBox(state, placement);
    return box.contains(toRect(rect)) && clearOfCorners(placement, radius, rect) &&
           state.contents->opaque();
}

class Search {
public:
    Search(const PaintSpace& space, const PixelRect& rect) : space_(space), rect_(rect) {}

    bool covers(const PaintNode& node, const AffineTransform& parentToPixels) {
        const LayerState& state = node.look();
        if (state.opacity < 1 || node.maskNode() || node.transition() || state.shouldRasterize ||
            !node.reach() || !contains(node.reach()->all, rect_))
            return false;
        LayerPlacement placement(state, parentToPixels, space_.scale);
        if (state.masksToBounds && !clearOfCorners(placement, state.cornerRadius, rect_))
            return false;
        path_.push_back(&node);
        auto order = paintOrder(node);
        bool found = std::any_of(order.rbegin(), order.rend(), [&](const PaintNode* child) {
            return covers(*child, placement.exact);
        });
        if (found || fills(state, placement, rect_))
            return true;
        path_.pop_back();
        return false;
    }

    std::vector<const PaintNode*> takePath() { return std::move(path_); }

private:
    PaintSpace space_;
    PixelRect rect_;
    std::vector<const PaintNode*> path_;
};

}  // namespace

std::vector<const PaintNode*> findCover(const PaintNode& root, const AffineTransform& toPixels,
                                        const PaintSpace& space, const PixelRect& rect) {
    Search search(space, rect);
    if (!root.look().hidden)
        search.covers(root, toPixels);
    return search.takePath();
}

}  // namespace zn
