#pragma once

#include <curl/curl.h>

namespace zn {

/// What is used of libcurl. It is loaded when something is first asked of the web: with the 26
/// libraries that it needs in turn, loading it takes as long as the rest of a program's start.
struct Curl {
    /// Null when it cannot be loaded, which is logged once and tried again the next time. Any
    /// thread.
    static const Curl* library();

    decltype(&curl_easy_init) easyInit = nullptr;
    decltype(&curl_easy_cleanup) easyCleanup = nullptr;
    decltype(&curl_easy_reset) easyReset = nullptr;
    decltype(&curl_easy_setopt) easySetopt = nullptr;
    decltype(&curl_easy_getinfo) easyGetinfo = nullptr;
    decltype(&curl_multi_init) multiInit = nullptr;
    decltype(&curl_multi_cleanup) multiCleanup = nullptr;
    decltype(&curl_multi_add_handle) multiAddHandle = nullptr;
    decltype(&curl_multi_remove_handle) multiRemoveHandle = nullptr;
    decltype(&curl_multi_perform) multiPerform = nullptr;
    decltype(&curl_multi_poll) multiPoll = nullptr;
    decltype(&curl_multi_info_read) multiInfoRead = nullptr;
};

}  // namespace zn
