#include "platform/services/linux/PowerSupply.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <vector>

#include "platform/foundation/files/FileBytes.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

struct Battery {
    std::optional<double> level;
    double weight = 1;
    UIDeviceBatteryState state = UIDeviceBatteryState::Unknown;
};

class Supply {
public:
    explicit Supply(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// A mouse's battery is one too, but of scope "Device".
    bool powersTheMachine() const {
        return text("type") == "Battery" && text("scope") != "Device" && text("present") != "0";
    }

    Battery battery() const {
        Battery result{level(), 1, state()};
        const auto capacity = number("energy_full");
        if (capacity && *capacity > 0)
            result.weight = *capacity;
        return result;
    }

private:
    std::string text(const char* name) const {
        const auto bytes = fileBytes((folder_ / name).string());
        return bytes ? std::string(stringByTrimmingWhitespaceAndNewlines(*bytes)) : std::string();
    }

    std::optional<double> number(const char* name) const {
        const std::string digits = text(name);
        return digits.empty() ? std::nullopt : std::optional(doubleValue(digits));
    }

    std::optional<double> level() const {
        if (const auto percentage = number("capacity"))
            return std::clamp(*percentage / 100, 0.0, 1.0);
        for (const auto& [now, full] :
             {std::pair("energy_now", "energy_full"), std::pair("charge_now", "charge_full")}) {
            const auto present = number(now);
            const auto whole = number(full);
            if (present && whole && *whole > 0)
                return std::clamp(*present / *whole, 0.0, 1.0);
        }
        return std::nullopt;
    }

    UIDeviceBatteryState state() const {
        const std::string status = text("status");
        if (status == "Charging")
            return UIDeviceBatteryState::Charging;
        if (status == "Full")
            return UIDeviceBatteryState::Full;
        return status == "Discharging" ? UIDeviceBatteryState::Unplugged
                                       : UIDeviceBatteryState::Unknown;
    }

    std::filesystem::path folder_;
};

std::vector<Battery> batteriesIn(const std::string& folder) {
    std::vector<Battery> batteries;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const Supply supply(entry->path());
        if (supply.powersTheMachine())
            batteries.push_back(supply.battery());
    }
    return batteries;
}

float commonLevel(const std::vector<Battery>& batteries) {
    double energy = 0;
    double weight = 0;
    for (const auto& battery : batteries) {
        if (!battery.level)
            continue;
        energy += *battery.level * battery.weight;
        weight += battery.weight;
    }
    return weight > 0 ? static_cast<float>(energy / weight) : -1;
}

/// Several batteries charge when one does, are in use when one is, and are full when all are.
UIDeviceBatteryState commonState(const std::vector<Battery>& batteries) {
    using enum UIDeviceBatteryState;
    const auto has = [&](UIDeviceBatteryState state) {
        return std::ranges::find(batteries, state, &Battery::state) != batteries.end();
    };
    for (const auto state : {Charging, Unplugged, Unknown}) {
        if (has(state))
            return state;
    }
    return batteries.empty() ? Unknown : Full;
}

}  // namespace

BatteryReading readPowerSupply(const std::string& folder) {
    const auto batteries = batteriesIn(folder);
    return {commonLevel(batteries), commonState(batteries)};
}

}  // namespace zn
