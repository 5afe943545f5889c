#include "platform/services/linux/HttpHandle.h"

#include "platform/services/linux/OpenSSL.h"

namespace zn {
namespace {

bool isLibraryReady() {
    static const bool ready = [] {
        keepOpenSSLUntilTheEnd();
        return curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    }();
    return ready;
}

}  // namespace

HttpHandle::HttpHandle() : multi_(curl_multi_init()), easy_(curl_easy_init()) {}

HttpHandle* HttpHandle::ofThisThread() {
    thread_local std::unique_ptr<HttpHandle> own;
    if (!own && isLibraryReady()) {
        std::unique_ptr<HttpHandle> made(new HttpHandle);
        if (made->easy_ && made->multi_)
            own = std::move(made);
    }
    return own.get();
}

}  // namespace zn
