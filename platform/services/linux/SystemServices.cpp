#include "platform/foundation/Folders.h"
#include "platform/services/linux/LinuxDeviceFacts.h"
#include "platform/services/linux/LinuxURLOpener.h"

namespace zn {

Ref<DeviceFacts> DeviceFacts::systemImplementation() {
    return make<LinuxDeviceFacts>(applicationIdentifier());
}

Ref<URLOpener> URLOpener::systemImplementation() {
    return make<LinuxURLOpener>();
}

}  // namespace zn
