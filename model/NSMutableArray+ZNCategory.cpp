#include "zarnic/NSMutableArray+ZNCategory.h"

namespace zn {

void zn_moveObjectFromIndex(Array array, std::size_t from, std::size_t to) {
    if (to == from || from >= array.count() || to >= array.count())
        return;
    Value item = array[from];
    array.remove(from);
    array.insert(to, std::move(item));
}

}  // namespace zn
