#include "zarnic/NSObject+ZNCategory.h"

namespace zn {

bool zn_NotNull(const Value& value) {
    switch (value.kind()) {
        case Value::Kind::Absent:
        case Value::Kind::Null:
            return false;
        case Value::Kind::String:
            return !value.string().empty();
        case Value::Kind::Data:
            return !value.bytes().empty();
        default:
            return true;
    }
}

}  // namespace zn
