#include "platform/foundation/ValueBlocks.h"

#include "zarnic/platform/NSException.h"

namespace zn {
namespace {

constexpr int maximumTeardownDepth = 64;
thread_local int teardownDepth = 0;
thread_local Container* deadContainers = nullptr;

void destroy(Container* container) noexcept {
    ++teardownDepth;
    delete container;
    --teardownDepth;
}

}  // namespace

void releaseContainer(Container* container) noexcept {
    if (!container->release())
        return;
    if (teardownDepth == maximumTeardownDepth) {
        container->nextDead = deadContainers;
        deadContainers = container;
        return;
    }
    destroy(container);
    while (teardownDepth == 0 && deadContainers != nullptr) {
        Container* next = deadContainers;
        deadContainers = next->nextDead;
        destroy(next);
    }
}

void requireMutable(const Container& container) {
    if (container.mutability == Mutability::Immutable)
        throw NSException(NSInternalInconsistencyException, "an immutable container was changed");
}

void requirePresent(const Value& value) {
    if (value.absent())
        throw NSException(NSInvalidArgumentException, "a container cannot hold an absent value");
}

}  // namespace zn
