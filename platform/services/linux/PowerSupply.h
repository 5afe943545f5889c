#pragma once

#include <string>

#include "zarnic/platform/services/DeviceFacts.h"

namespace zn {

/// The batteries that power the machine itself, taken together, from a folder laid out as
/// `/sys/class/power_supply`. Unknown when there is none.
BatteryReading readPowerSupply(const std::string& folder);

}  // namespace zn
