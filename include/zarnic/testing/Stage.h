#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/ManualClock.h"
#include "zarnic/platform/host/HeadlessHost.h"
#include "zarnic/platform/uikit/UIKeyInput.h"
#include "zarnic/platform/uikit/UIViewController.h"
#include "zarnic/platform/uikit/UIWindow.h"
#include "zarnic/testing/FakeBluetoothAdapter.h"
#include "zarnic/testing/FakeDeviceFacts.h"
#include "zarnic/testing/FakeDisplayStatus.h"
#include "zarnic/testing/FakeHttpTransport.h"
#include "zarnic/testing/FakeURLOpener.h"

namespace zn {

/// A whole application in a test: a clock that moves only when told, a screen without a display,
/// services that answer what the test wants and, unless `ZARNIC_HOME` is set, a home that goes with
/// it. Make one before anything asks for the time, the screen or a folder. Main thread only.
class ZN_EXPORT Stage {
public:
    struct Options {
        DeviceProfile device;
        /// Seconds since 1970 at which the clock stands.
        double now = 1514764800.0;
        /// How often the screen is painted while something animates; fewer frames make long times
        /// quick.
        double framesPerSecond = 60;
    };

    Stage();
    explicit Stage(const Options& options);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    ManualClock& clock();
    HeadlessHost& host();
    /// Lets time pass, with all that is due in it.
    void advance(double seconds);
    /// Lets no time pass: what can happen now has happened afterwards.
    void settle();

    /// A window of the screen's size with this root, key and visible; the Stage keeps it.
    Ref<UIWindow> show(const Ref<UIViewController>& root);

    // Fingers, in screen points; each call settles.
    void touchDown(Point place, std::int64_t finger = 0);
    void touchMove(Point place, std::int64_t finger = 0);
    void touchUp(Point place, std::int64_t finger = 0);
    /// Down and up at the same place, 0.05 seconds apart.
    void tap(Point place);
    /// The same in the middle of a view, wherever it is on the screen.
    void tap(const Ref<UIView>& view);
    /// A finger that goes straight in even steps, 60 a second.
    void drag(Point from, Point to, double duration = 0.3);

    // Text and keys, as a keyboard or an input method gives them; each call settles. They go to the
    // first responder of the key window; without one nothing happens.
    void type(std::string_view text);
    /// A key that types nothing, with bits of `UIKeyModifierFlags`.
    void pressKey(UIKeyboardHIDUsage key, unsigned modifiers = 0);
    /// The key that types this, with control keys: "a" for Ctrl+A.
    void pressShortcut(std::string_view character,
                       unsigned modifiers = UIKeyModifierFlags::Control);
    /// Shows a composition in progress; empty gives it up.
    void compose(std::string_view text);

    /// A keyboard comes up to this height in points; 0 hides it.
    void keyboard(double height, double duration = 0.25);

    /// The screen as it is now.
    Ref<UIImage> snapshot();
    /// Lines logged since the last call.
    std::vector<std::string> takeLog();

    // The services of the stage's machine.
    FakeDeviceFacts& device();
    FakeURLOpener& urlOpener();
    FakeBluetoothAdapter& bluetooth();
    FakeDisplayStatus& display();
    FakeHttpTransport& http();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace zn
