#include "imagecache/KeyIndex.h"

#include <algorithm>
#include <utility>

namespace zn {

void KeyIndex::add(Hash hash, Number number) {
    if (2 * (count_ + 1) > cells_.size())
        grow();
    put({hash, number & 0x7FFFFFFF, 1});
    ++count_;
}

void KeyIndex::put(Cell cell) {
    std::size_t place = cell.hash & mask();
    while (cells_[place].used)
        place = (place + 1) & mask();
    cells_[place] = cell;
}

void KeyIndex::grow() {
    constexpr std::size_t fewest = 16;
    const auto former =
        std::exchange(cells_, std::vector<Cell>(std::max(fewest, 2 * cells_.size())));
    for (const Cell& cell : former) {
        if (cell.used)
            put(cell);
    }
}

void KeyIndex::remove(Hash hash, Number number) {
    std::size_t gap = hash & mask();
    while (cells_[gap].number != number || !cells_[gap].used)
        gap = (gap + 1) & mask();
    cells_[gap] = {};
    --count_;
    // Those behind the gap that looked for a place before it close it.
    for (std::size_t place = (gap + 1) & mask(); cells_[place].used; place = (place + 1) & mask()) {
        const std::size_t wanted = cells_[place].hash & mask();
        if (((place - wanted) & mask()) >= ((place - gap) & mask())) {
            cells_[gap] = std::exchange(cells_[place], {});
            gap = place;
        }
    }
}

void KeyIndex::clear() {
    cells_.clear();
    count_ = 0;
}

}  // namespace zn
