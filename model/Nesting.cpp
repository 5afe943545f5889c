#include "model/Nesting.h"

#include "platform/foundation/base/FastThreadLocal.h"
#include "zarnic/platform/foundation/NSException.h"

namespace zn {
namespace {

constexpr int maximumDepth = 1024;
ZN_FAST_THREAD_LOCAL int depth = 0;

}  // namespace

Nesting::Nesting() {
    if (depth == maximumDepth)
        throw NSException(NSInvalidArgumentException, "nested too deep, or in a circle");
    ++depth;
}

Nesting::~Nesting() {
    --depth;
}

}  // namespace zn
