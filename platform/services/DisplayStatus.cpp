#include "zarnic/platform/services/DisplayStatus.h"

#include "platform/services/Listeners.h"

namespace zn {

struct DisplayStatus::Observers {
    Listeners<> listeners;
};

DisplayStatus::DisplayStatus() : observers_(std::make_unique<Observers>()) {}

DisplayStatus::~DisplayStatus() = default;

RunLoopToken DisplayStatus::observe(std::function<void()> handler) {
    const auto listener = observers_->listeners.add(std::move(handler));
    if (!begun_) {
        begun_ = true;
        begin();
    }
    return observers_->listeners.token(listener);
}

void DisplayStatus::announceChange() {
    observers_->listeners.tellAll();
}

}  // namespace zn
