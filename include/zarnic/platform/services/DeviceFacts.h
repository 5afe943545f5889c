#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

/// The platform's numbers.
enum class UIDeviceBatteryState : std::int64_t { Unknown, Unplugged, Charging, Full };

enum class UIDeviceOrientation : std::int64_t {
    Unknown,
    Portrait,
    PortraitUpsideDown,
    LandscapeLeft,
    LandscapeRight,
    FaceUp,
    FaceDown,
};

enum class UIUserInterfaceIdiom : std::int64_t { Unspecified = -1, Phone, Pad, TV, CarPlay };

struct BatteryReading {
    /// 0 to 1, or -1 when unknown.
    float level = -1;
    UIDeviceBatteryState state = UIDeviceBatteryState::Unknown;
};

/// What the machine says about itself: the seam behind the current device. Every call reads afresh.
class ZN_EXPORT DeviceFacts : public NSObject {
public:
    /// This machine's (Linux).
    static Ref<DeviceFacts> systemImplementation();

    /// The hardware's name, as `uname` has it: `x86_64`, `aarch64`.
    virtual std::string machineIdentifier() const = 0;
    virtual std::string name() const = 0;
    virtual std::string model() const = 0;
    virtual std::string localizedModel() const = 0;
    virtual std::string systemName() const = 0;
    virtual std::string systemVersion() const = 0;
    /// A UUID of this machine for this application, 36 upper-case characters; absent when the
    /// machine has no identity.
    virtual std::optional<std::string> identifierForVendor() const = 0;
    /// The battery now, whether or not anybody monitors it.
    virtual BatteryReading battery() const = 0;
    virtual UIDeviceOrientation orientation() const = 0;
    virtual bool multitaskingSupported() const = 0;
    virtual UIUserInterfaceIdiom userInterfaceIdiom() const = 0;
    /// Whether something is close to the screen.
    virtual bool proximityState() const = 0;
};

}  // namespace zn
