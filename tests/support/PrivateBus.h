#pragma once

#include <systemd/sd-bus.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace zn {

/// A message bus of the test's own, on which mocked services come and go. While it lives, this
/// process and the programs it starts find it as the system's bus and as the session's.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Starts the mocked service of a dbusmock template and waits until it has its name.
    void startService(const std::string& mock, const std::string& name);
    /// Ends it and waits until the name is free.
    void stopService();
    /// The test's own connection.
    sd_bus* connection() { return connection_; }
    /// Calls a method that answers nothing of interest, with texts as arguments.
    void call(const std::string& service, const std::string& path, const std::string& interface,
              const std::string& member, const std::vector<std::string>& texts = {});
    void setProperty(const std::string& service, const std::string& path,
                     const std::string& interface, const std::string& member, bool value);

private:
    void waitForName(bool wanted);

    TemporaryFolder folder_;
    std::unique_ptr<ChildProcess> daemon_;
    std::unique_ptr<ChildProcess> service_;
    std::string name_;
    sd_bus* connection_ = nullptr;
};

}  // namespace zn
