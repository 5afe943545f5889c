#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/services/linux/Bus.h"
#include "zarnic/platform/services/BluetoothAdapter.h"

namespace zn {

/// The adapters of BlueZ, over the system bus. Without a bus, a service or an adapter there is no
/// Bluetooth; it is looked for again quietly.
class ZN_EXPORT LinuxBluetoothAdapter final : public BluetoothAdapter {
public:
    struct Timing {
        /// Seconds between attempts to reach a bus that is not there.
        double retry = 30;
        /// Seconds that a service which has gone may take to come back, before it counts as none.
        double grace = 5;
    };

    LinuxBluetoothAdapter();
    explicit LinuxBluetoothAdapter(Timing timing);
    ~LinuxBluetoothAdapter() override;

protected:
    void begin() override;

private:
    void connect();
    void lose();
    void ask();
    void take(const BusMessage& objects);
    void serviceChanged(const BusMessage& message);
    void adapterChanged(const BusMessage& message);
    void interfacesAdded(const BusMessage& message);
    void interfacesRemoved(const BusMessage& message);
    void announceFound();

    Timing timing_;
    std::unique_ptr<Bus> bus_;
    RunLoopToken later_;
    /// What is heard before the answer to the first question is older than the answer.
    bool answered_ = false;
    /// Questions asked before the service went are not answered by it.
    unsigned question_ = 0;
    /// The adapters' object paths, and whether each has power.
    std::map<std::string, bool> adapters_;
};

}  // namespace zn
