#include "zarnic/ZNBufMemoryModel.h"

namespace zn {

ZNBufMemoryModel::ZNBufMemoryModel() = default;

ZNBufMemoryModel::ZNBufMemoryModel(std::string_view key, double lastCallTime, Ref<UIImage> image)
    : key_(key), lastCallTime_(lastCallTime), image_(std::move(image)) {}

ZNBufMemoryModel::~ZNBufMemoryModel() = default;

void ZNBufMemoryModel::setLastCallTime(double time) {
    const double former = lastCallTime_.exchange(time, std::memory_order_relaxed);
    // Also when one of them is not a number.
    if (!(time >= former))
        setBacks().fetch_add(1, std::memory_order_release);
}

std::atomic<std::uint64_t>& ZNBufMemoryModel::setBacks() {
    static std::atomic<std::uint64_t> count = 0;
    return count;
}

}  // namespace zn
