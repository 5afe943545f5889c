#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/services/linux/Bus.h"
#include "zarnic/platform/services/DisplayStatus.h"

namespace zn {

/// The lock hint of the login session (logind, on the system bus) and the desktop's screen saver
/// (on the session bus). Either bus may be missing, and is looked for again quietly.
class ZN_EXPORT LinuxDisplayStatus final : public DisplayStatus {
public:
    /// `retry`: seconds between attempts to reach a bus that is not there.
    explicit LinuxDisplayStatus(double retry = 30);
    ~LinuxDisplayStatus() override;

    std::uint64_t state() override;

protected:
    void begin() override;

private:
    void connectSystem();
    void connectSession();
    void askLocked();
    void askSaver(const BusMethod& method);
    void sessionChanged(const BusMessage& message);
    /// What is heard first is how it was all along.
    enum class Source { FirstAnswer, Change };
    void heard(std::optional<bool>& known, bool now, Source source);
    std::optional<bool> readLocked();
    std::optional<bool> readSaver();

    double retry_;
    std::unique_ptr<Bus> system_;
    std::unique_ptr<Bus> session_;
    RunLoopToken systemLater_;
    RunLoopToken sessionLater_;
    std::string sessionPath_;
    /// What was heard last; absent before the first answer, which is no change.
    std::optional<bool> locked_;
    std::optional<bool> saver_;
};

}  // namespace zn
