#include <cstdlib>

#include "platform/foundation/bundle/Folders.h"
#include "platform/services/linux/LinuxBluetoothAdapter.h"
#include "platform/services/linux/LinuxDeviceFacts.h"
#include "platform/services/linux/LinuxDisplayStatus.h"
#include "platform/services/linux/LinuxHttpTransport.h"
#include "platform/services/linux/LinuxURLOpener.h"

namespace zn {

Ref<BluetoothAdapter> BluetoothAdapter::systemImplementation() {
    return make<LinuxBluetoothAdapter>();
}

Ref<DeviceFacts> DeviceFacts::systemImplementation() {
    return make<LinuxDeviceFacts>(applicationIdentifier());
}

Ref<DisplayStatus> DisplayStatus::systemImplementation() {
    return make<LinuxDisplayStatus>();
}

Ref<HttpTransport> HttpTransport::systemImplementation() {
    const char* certificates = std::getenv("SSL_CERT_FILE");
    return make<LinuxHttpTransport>(
        LinuxHttpTransport::Settings{applicationIdentifier(), certificates ? certificates : ""});
}

Ref<URLOpener> URLOpener::systemImplementation() {
    return make<LinuxURLOpener>();
}

}  // namespace zn
