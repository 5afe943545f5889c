#pragma once

#include <optional>
#include <string>

#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// The measures of the screen and the versions of system and application, taken once, at first
/// use, and never again: neither a turned screen nor a status bar that comes later changes them.
/// Use it for the first time on the main thread; after that, any.
class ZN_EXPORT ZNUIAdaptationHelper final : public NSObject {
    ZN_OBJECT(ZNUIAdaptationHelper, NSObject)
public:
    ZNUIAdaptationHelper();
    ~ZNUIAdaptationHelper() override;
    /// Takes the measures.
    void init() override;
    static Ref<ZNUIAdaptationHelper> SharedInstance();

    /// The system's version as a number: "11.2.1" gives the single-precision 11.2.
    static double SysVersion() { return SharedInstance()->sysVersion(); }
    /// `CFBundleShortVersionString` and `CFBundleVersion` of the main bundle; absent without one.
    static std::optional<std::string> AppShortVersion() {
        return SharedInstance()->appShortVersion();
    }
    static std::optional<std::string> AppBuildVersion() {
        return SharedInstance()->appBuildVersion();
    }
    /// Of the screen, in points.
    static double Width() { return SharedInstance()->width(); }
    static double Height() { return SharedInstance()->height(); }
    /// The screen's short side relative to a phone of 375 points; 1 on a tablet.
    static double Scale() { return SharedInstance()->scale(); }
    /// The height of the status bar; 0 when it was hidden then.
    static double SafeTop() { return SharedInstance()->safeTop(); }
    /// 34 points on phones with a notch, else 0.
    static double SafeBottom() { return SharedInstance()->safeBottom(); }
    /// The screen's short side relative to a tablet of 768 points.
    static double Scale4iPad() { return SharedInstance()->scale4iPad(); }

    double sysVersion() const { return sysVersion_; }
    const std::optional<std::string>& appShortVersion() const { return appShortVersion_; }
    const std::optional<std::string>& appBuildVersion() const { return appBuildVersion_; }
    double width() const { return width_; }
    double height() const { return height_; }
    double scale() const { return scale_; }
    double safeTop() const { return safeTop_; }
    double safeBottom() const { return safeBottom_; }
    double scale4iPad() const { return scale4iPad_; }

private:
    double sysVersion_ = 0;
    std::optional<std::string> appShortVersion_;
    std::optional<std::string> appBuildVersion_;
    double width_ = 0;
    double height_ = 0;
    double scale_ = 1;
    double safeTop_ = 0;
    double safeBottom_ = 0;
    double scale4iPad_ = 1;
};

}  // namespace zn
