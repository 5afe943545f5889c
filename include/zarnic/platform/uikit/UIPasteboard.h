#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// What is cut and copied, for other programs too where there is a display. Main thread only.
class ZN_EXPORT UIPasteboard final : public NSObject {
    ZN_OBJECT(UIPasteboard, NSObject)
public:
    UIPasteboard();
    ~UIPasteboard() override;
    static Ref<UIPasteboard> generalPasteboard();

    /// UTF-8; absent when there is none, or something that is no text.
    std::optional<std::string> string() const;
    void setString(std::string_view text);
    bool hasStrings() const;
};

}  // namespace zn
