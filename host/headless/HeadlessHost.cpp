#include "zarnic/platform/host/HeadlessHost.h"

#include <fstream>

namespace zn {

HeadlessHost::HeadlessHost(const DeviceProfile& device, double framesPerSecond)
    : driver_(device, {}, framesPerSecond) {}

Ref<UIImage> HeadlessHost::snapshot() {
    driver_.paint();
    const Compositor& compositor = driver_.compositor();
    return UIImage::imageWithCGImage(compositor.snapshot(), compositor.scale());
}

bool HeadlessHost::writePNG(std::string_view path) {
    const auto bytes = UIImagePNGRepresentation(snapshot());
    if (!bytes)
        return false;
    std::ofstream file(std::string(path), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes->data()),
               static_cast<std::streamsize>(bytes->size()));
    return static_cast<bool>(file.flush());
}

}  // namespace zn
