#include "zarnic/NSArray+ZNCategory.h"

namespace zn {

std::string descriptionWithLocale(const Array& array, const Value& /*locale*/) {
    return Value(array).description();
}

}  // namespace zn
