#include "platform/layers/look/DamageRegion.h"

#include <limits>
#include <utility>

namespace zn {
namespace {

constexpr std::size_t MostRects = 8;
// Pixels that a joined rectangle may paint in vain: about what walking the tree once more costs.
constexpr std::int64_t CheapWaste = 4096;

std::int64_t waste(const PixelRect& a, const PixelRect& b) {
    return area(unite(a, b)) - area(a) - area(b);
}

}  // namespace

void DamageRegion::add(const PixelRect& rect) {
    if (isEmpty(rect))
        return;
    PixelRect joined = rect;
    // A joined one may now meet others.
    for (std::size_t i = 0; i < rects_.size();) {
        if (waste(rects_[i], joined) > CheapWaste) {
            ++i;
            continue;
        }
        joined = unite(rects_[i], joined);
        rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    rects_.push_back(joined);
    if (rects_.size() > MostRects)
        joinCheapest();
}

void DamageRegion::joinCheapest() {
    std::size_t first = 0, second = 1;
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < rects_.size(); ++i)
        for (std::size_t j = i + 1; j < rects_.size(); ++j)
            if (std::int64_t cost = waste(rects_[i], rects_[j]); cost < least) {
                least = cost;
                first = i;
                second = j;
            }
    PixelRect joined = unite(rects_[first], rects_[second]);
    rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(second));
    rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(first));
    add(joined);
}

std::vector<PixelRect> DamageRegion::take() {
    return std::exchange(rects_, {});
}

}  // namespace zn
