#pragma once

#include <cstdint>
#include <string>

#include "zarnic/platform/foundation/Value.h"
#include "zarnic/platform/uikit/UIDevice.h"

namespace zn {

/// What `ZN_DeviceType` answers.
enum class ZNDeviceType : std::int64_t {
    Unknown = 0,
    Simulator = 1,
    iPhone = 2,
    iPad = 3,
    iPod = 4,
    AppleTV = 5,
    /// The phones with a notch.
    iPhoneX = 6,
};

/// The properties of `UIDevice` under their names, immutable; absent ones are left out. Main
/// thread only.
ZN_EXPORT Dictionary ZN_CurrentDeviceDict();
/// The product's name for the machine identifier, or the identifier itself when it is unknown.
ZN_EXPORT std::string ZN_DeviceTypeString();
/// A number of `ZNDeviceType`, told from the product's name.
ZN_EXPORT std::int64_t ZN_DeviceType();
/// A number of `UIUserInterfaceIdiom`.
ZN_EXPORT std::int64_t ZN_DeviceInterfaceIdiom();
ZN_EXPORT std::string ZN_SystemVersion();

}  // namespace zn
