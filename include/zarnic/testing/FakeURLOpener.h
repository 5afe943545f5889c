#pragma once

#include <functional>
#include <string>
#include <vector>

#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/services/URLOpener.h"

namespace zn {

/// Notes the URLs that it is given and opens none of them. Main thread only.
class FakeURLOpener final : public URLOpener {
public:
    std::vector<std::string> opened;
    /// What completions hear for texts that are URLs.
    bool succeeds = true;

    void open(std::string_view url, std::function<void(bool)> completion) override {
        const bool result = isURL(url) && succeeds;
        if (isURL(url))
            opened.emplace_back(url);
        if (completion)
            dispatchMain([completion = std::move(completion), result] { completion(result); });
    }
};

}  // namespace zn
