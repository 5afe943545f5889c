#pragma once

#include <functional>
#include <string_view>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// Writes one line, formatted as by `printf`, to the sink. From any thread.
ZN_EXPORT void NSLog(const char* format, ...) __attribute__((format(printf, 1, 2)));

using LogSink = std::function<void(std::string_view line)>;
/// Where lines go (without a line break); an empty sink restores standard error. Sinks are called
/// one line at a time.
ZN_EXPORT void setLogSink(LogSink sink);

}  // namespace zn
