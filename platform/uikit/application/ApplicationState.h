#pragma once

#include <vector>

#include "platform/uikit/keyboard/KeyboardPanel.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

struct UIApplication::State {
    /// Those that were key, the present one last.
    std::vector<WeakRef<UIWindow>> keys;
    bool statusBarNeedsUpdate = false;
    bool statusBarWasUpdated = false;
    double keyboardHeight = 0;
    /// Posts the notice that the keyboard has arrived or gone.
    RunLoopToken keyboardMoved;
    RunLoopToken endOfPass;
    bool showsKeyboardPanel = false;
    /// Made when it is first needed.
    Ref<KeyboardPanel> keyboardPanel;

    struct KeyboardMove {
        /// The notices before and after.
        const char* begins;
        const char* finished;
        Rect begin;
        Rect end;
        double duration;
    };

    Ref<UIWindow> key() const;
    /// A null window leaves none that is key.
    void makeKey(const Ref<UIWindow>& window);
    /// Hands the key status on when the window has it.
    void windowWasHidden(const Ref<UIWindow>& window);
    void updateStatusBar();
    void updateKeyboardPanel();
    void moveKeyboard(const KeyboardMove& move);
};

}  // namespace zn
