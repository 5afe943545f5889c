#include "zarnic/platform/foundation/NSCoder.h"

namespace zn {

NSCoding::~NSCoding() = default;

}  // namespace zn
