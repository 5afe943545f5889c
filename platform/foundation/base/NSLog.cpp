#include "zarnic/platform/foundation/NSLog.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>

namespace zn {
namespace {

struct Log {
    std::recursive_mutex mutex;
    LogSink sink;
};

/// Never destroyed: threads may still log while the program ends.
Log& theLog() {
    static auto& log = *new Log;
    return log;
}

std::string formatted(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

}  // namespace

void NSLog(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string line = formatted(format, arguments);
    va_end(arguments);
    auto& log = theLog();
    std::lock_guard guard(log.mutex);
    if (log.sink)
        log.sink(line);
    else
        std::fprintf(stderr, "%s\n", line.c_str());
}

void setLogSink(LogSink sink) {
    auto& log = theLog();
    std::lock_guard guard(log.mutex);
    log.sink = std::move(sink);
}

}  // namespace zn
