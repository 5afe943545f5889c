#include "platform/services/linux/Curl.h"

#include <dlfcn.h>

#include <mutex>
#include <optional>

#include "platform/services/linux/OpenSSL.h"
#include "zarnic/platform/foundation/NSLog.h"

namespace zn {
namespace {

/// The name is that of the interface's fourth version, the present one since 2006.
constexpr const char* fileName = "libcurl.so.4";

template <class Function>
bool find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

bool findAll(void* library, Curl& curl) {
    return find(library, "curl_easy_init", curl.easyInit) &&
           find(library, "curl_easy_cleanup", curl.easyCleanup) &&
           find(library, "curl_easy_reset", curl.easyReset) &&
           find(library, "curl_easy_setopt", curl.easySetopt) &&
           find(library, "curl_easy_getinfo", curl.easyGetinfo) &&
           find(library, "curl_multi_init", curl.multiInit) &&
           find(library, "curl_multi_cleanup", curl.multiCleanup) &&
           find(library, "curl_multi_add_handle", curl.multiAddHandle) &&
           find(library, "curl_multi_remove_handle", curl.multiRemoveHandle) &&
           find(library, "curl_multi_perform", curl.multiPerform) &&
           find(library, "curl_multi_poll", curl.multiPoll) &&
           find(library, "curl_multi_info_read", curl.multiInfoRead);
}

/// Stays loaded: threads may use it until the process ends.
std::optional<Curl> load() {
    keepOpenSSLUntilTheEnd();
    void* library = dlopen(fileName, RTLD_NOW | RTLD_LOCAL);
    decltype(&curl_global_init) globalInit = nullptr;
    Curl curl;
    if (library != nullptr && find(library, "curl_global_init", globalInit) &&
        findAll(library, curl) && globalInit(CURL_GLOBAL_DEFAULT) == CURLE_OK)
        return curl;
    return std::nullopt;
}

void logFailureOnce() {
    static std::once_flag logged;
    const char* reason = dlerror();
    std::call_once(logged, [reason] {
        NSLog("no web without libcurl: %s", reason != nullptr ? reason : "it does not start");
    });
}

}  // namespace

const Curl* Curl::library() {
    static std::mutex mutex;
    static std::optional<Curl> loaded;
    const std::lock_guard guard(mutex);
    // Without descriptors it cannot be loaded either, but there may be some the next time.
    if (!loaded && !(loaded = load()))
        logFailureOnce();
    return loaded ? &*loaded : nullptr;
}

}  // namespace zn
