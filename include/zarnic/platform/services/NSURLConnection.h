#pragma once

#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/services/NSURLRequest.h"

namespace zn {

/// Loads what URLs name, through the process's `HttpTransport`. Any thread.
class ZN_EXPORT NSURLConnection {
public:
    /// Blocks until the body is there, and gives it as data, which may be empty, whatever the
    /// status of the answer. Absent on failure (see `HttpTransport::get`), for a null request or
    /// URL, and for a scheme other than `http` and `https`. A fragment is not sent.
    static Value sendSynchronousRequest(const Ref<NSURLRequest>& request);
};

}  // namespace zn
