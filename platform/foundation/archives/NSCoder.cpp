#include "zarnic/platform/NSCoder.h"

namespace zn {

NSCoding::~NSCoding() = default;

}  // namespace zn
