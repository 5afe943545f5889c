#pragma once

#include <functional>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// Where blocks run. Every function may be called from any thread and returns at once; an empty
/// block does nothing; an exception that leaves a block on the pool is logged and ends the process.
/// What is to happen once in a process is a local static or `std::call_once`.

/// Runs the block on the main thread in a later pass of the main loop, first in, first out.
ZN_EXPORT void dispatchMain(std::function<void()> block);
/// Runs the block on the elastic pool (up to 64 threads); started in order of submission.
ZN_EXPORT void dispatchGlobal(std::function<void()> block);
/// The same, no earlier than `delay` seconds from now; waiting costs no thread.
ZN_EXPORT void dispatchMainAfter(double delay, std::function<void()> block);
ZN_EXPORT void dispatchGlobalAfter(double delay, std::function<void()> block);

}  // namespace zn
