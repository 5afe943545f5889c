#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// The text that programs hand one another. Main thread only.
class ZN_EXPORT Clipboard : public NSObject {
public:
    /// One of this process's own; a host with a display puts the display's in its place.
    static Ref<Clipboard> systemImplementation();

    /// UTF-8; absent when there is none, or no text.
    virtual std::optional<std::string> text() = 0;
    virtual void setText(std::string_view text) = 0;
};

}  // namespace zn
