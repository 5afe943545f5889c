#include "platform/services/linux/HttpHandle.h"

namespace zn {

HttpHandle::HttpHandle(const Curl& library)
    : library_(library),
      multi_(library.multiInit(), library.multiCleanup),
      easy_(library.easyInit(), library.easyCleanup) {}

HttpHandle* HttpHandle::ofThisThread() {
    thread_local std::unique_ptr<HttpHandle> own;
    const Curl* library = own ? nullptr : Curl::library();
    if (library != nullptr) {
        std::unique_ptr<HttpHandle> made(new HttpHandle(*library));
        if (made->easy_ && made->multi_)
            own = std::move(made);
    }
    return own.get();
}

}  // namespace zn
