#include <algorithm>

#include "zarnic/platform/uikit/UIScreen.h"

namespace zn {

const std::vector<DeviceProfile>& DeviceProfile::all() {
    static const auto& profiles = *new std::vector<DeviceProfile>{
        {"phone-se", "iPhone8,4", {320, 568}, 2, 20, 0, false},
        {"phone", "iPhone9,1", {375, 667}, 2, 20, 0, false},
        {"phone-plus", "iPhone9,2", {414, 736}, 3, 20, 0, false},
        {"phone-x", "iPhone10,3", {375, 812}, 3, 44, 34, false},
        {"tablet", "iPad6,3", {768, 1024}, 2, 20, 0, true},
    };
    return profiles;
}

const DeviceProfile* DeviceProfile::named(std::string_view name) {
    const auto& profiles = all();
    const auto found =
        std::find_if(profiles.begin(), profiles.end(),
                     [name](const DeviceProfile& each) { return each.name == name; });
    return found == profiles.end() ? nullptr : &*found;
}

}  // namespace zn
