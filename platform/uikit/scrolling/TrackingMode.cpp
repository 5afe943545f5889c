#include "platform/uikit/scrolling/TrackingMode.h"

#include "zarnic/platform/foundation/NSRunLoop.h"

namespace zn {
namespace {

/// How many there are, on the main thread.
int& count() {
    static int value = 0;
    return value;
}

}  // namespace

TrackingMode::TrackingMode() {
    if (++count() == 1)
        NSRunLoop::mainRunLoop()->setMode(NSRunLoopMode::Tracking);
}

TrackingMode::~TrackingMode() {
    if (--count() == 0)
        NSRunLoop::mainRunLoop()->setMode(NSRunLoopMode::Default);
}

}  // namespace zn
