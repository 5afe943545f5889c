#include "model/Nesting.h"

#include "zarnic/platform/NSException.h"

namespace zn {
namespace {

constexpr int maximumDepth = 1024;
thread_local int depth = 0;

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
