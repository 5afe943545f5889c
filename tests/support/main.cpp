#include <gmock/gmock.h>

#include <cstdlib>

// The sanitizers ask these for their settings, also when a program is started by hand; they find
// only what is visible.
#define ZN_SANITIZER_HOOK extern "C" __attribute__((visibility("default")))

#if defined(__SANITIZE_ADDRESS__)
ZN_SANITIZER_HOOK const char* __asan_default_options();
ZN_SANITIZER_HOOK const char* __lsan_default_suppressions();
ZN_SANITIZER_HOOK const char* __ubsan_default_options();

const char* __asan_default_options() {
    return "detect_stack_use_after_return=1:strict_string_checks=1:print_suppressions=0";
}

// Caches that these libraries keep until the process ends.
const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\nleak:libpango\nleak:libglib-2.0.so\nleak:libSDL2\n";
}

const char* __ubsan_default_options() {
    return "print_stacktrace=1";
}
#elif defined(__SANITIZE_THREAD__)
ZN_SANITIZER_HOOK const char* __tsan_default_options();
ZN_SANITIZER_HOOK const char* __tsan_default_suppressions();

const char* __tsan_default_options() {
    return "halt_on_error=1:second_deadlock_stack=1";
}

// These libraries are not instrumented and lock with futexes of their own, which the sanitizer
// cannot see.
const char* __tsan_default_suppressions() {
    return "called_from_lib:libglib-2.0.so\ncalled_from_lib:libgobject-2.0.so\n"
           "mutex:libpango\n"
           "race:libpango\nrace:libfontconfig.so\n";
}
#endif

// No test depends on where and in which language it runs.
int main(int argumentCount, char** arguments) {
    setenv("TZ", "UTC", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    testing::InitGoogleMock(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
