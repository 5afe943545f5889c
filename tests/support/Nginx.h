#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace zn {

/// A web server of the test's own, on loopback, with a folder of its own. Besides the files, as
/// they are, it serves: `/gzip/NAME`, the file compressed; `/connection`, the number of the
/// connection that asks; `/echo...`, the path and query as they came; `/agent` and `/accepts`,
/// the program that asks and the encodings that it takes; `/moved/NAME`, a redirect to the file.
class Nginx {
public:
    enum class Encryption { None, SelfSigned };

    explicit Nginx(Encryption encryption = Encryption::None, int processes = 0);

    /// Of something that it serves; the path begins with a slash.
    std::string url(const std::string& path) const;
    /// Puts a file in place, also while it runs.
    void write(std::string_view name, std::string_view contents) const;
    /// The certificate that it shows, for those who trust it.
    std::string certificate() const { return folder_.path("certificate.pem"); }

private:
    std::string configuration() const;
    bool start();
    bool isReady();

    const Encryption encryption_;
    /// Beside the first one; 0 keeps all in one.
    const int processes_;
    const TemporaryFolder folder_;
    std::uint16_t port_ = 0;
    std::unique_ptr<ChildProcess> process_;
};

}  // namespace zn
