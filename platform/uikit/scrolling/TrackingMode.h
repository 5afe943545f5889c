#pragma once

namespace zn {

/// Keeps the main run loop in its tracking mode while any of them is there.
class TrackingMode {
public:
    TrackingMode();
    ~TrackingMode();
    TrackingMode(const TrackingMode&) = delete;
    TrackingMode& operator=(const TrackingMode&) = delete;
};

}  // namespace zn
