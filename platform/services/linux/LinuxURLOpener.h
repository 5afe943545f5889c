#pragma once

#include <string>

#include "zarnic/platform/foundation/Export.h"
#include "zarnic/platform/services/URLOpener.h"

namespace zn {

/// Starts a program with the URL as its one argument, without a shell, which took the URL when it
/// ends well.
class ZN_EXPORT LinuxURLOpener final : public URLOpener {
public:
    explicit LinuxURLOpener(std::string program = "xdg-open");

    void open(std::string_view url, std::function<void(bool)> completion) override;

private:
    std::string program_;
};

}  // namespace zn
