#pragma once

#include <functional>
#include <string_view>

#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// Hands URLs to other programs.
class ZN_EXPORT URLOpener : public NSObject {
public:
    /// The desktop's (`xdg-open`).
    static Ref<URLOpener> systemImplementation();

    /// Returns at once. The completion (which may be empty) is called later on the main queue: true
    /// when a program took the URL. False for a text that does not begin with a scheme, and for one
    /// with control characters.
    virtual void open(std::string_view url, std::function<void(bool opened)> completion) = 0;

    /// Whether the text begins with a scheme and a colon (RFC 3986) and holds no control
    /// characters.
    static bool isURL(std::string_view text);
};

}  // namespace zn
