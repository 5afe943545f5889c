#pragma once

#include <functional>
#include <string>

namespace zn {

/// Whether the caller is the thread that the program began with.
bool isMainThread();

/// Starts a thread of this name that nobody joins and that counts for the clock. An exception that
/// leaves `body` is logged and ends the process. Throws `std::system_error` when the machine has no
/// thread to give.
void startThread(const std::string& name, std::function<void()> body);

/// Names the calling thread for debuggers, which show the first 15 bytes.
void nameCallingThread(const std::string& name);

}  // namespace zn
