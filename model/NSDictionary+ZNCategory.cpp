#include "zarnic/NSDictionary+ZNCategory.h"

namespace zn {

std::string descriptionWithLocale(const Dictionary& dictionary, const Value& /*locale*/) {
    return Value(dictionary).description();
}

}  // namespace zn
