#pragma once

#include <string>

namespace bench {

/// The processor's name as the kernel tells it.
std::string processorName();
/// The most memory that this process held at a time, in KB, to standard output. What `getrusage`
/// tells of a child begins with the memory of the process that forked it.
void printPeakMemory();

}  // namespace bench
