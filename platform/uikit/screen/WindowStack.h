#pragma once

#include <vector>

#include "zarnic/platform/uikit/UIWindow.h"

namespace zn {

/// Every window there is, back to front: by level, then by when it was last shown. Visible windows
/// are kept alive.
class WindowStack {
public:
    void add(const Ref<UIWindow>& window);
    /// To the front of its level, and visible.
    void show(const Ref<UIWindow>& window);
    void hide(const Ref<UIWindow>& window);
    /// To the front of its new level; still visible or hidden as before.
    void moveToLevel(const Ref<UIWindow>& window);

    std::vector<Ref<UIWindow>> all() const;
    std::vector<Ref<UIWindow>> visible() const;

private:
    struct Entry {
        WeakRef<UIWindow> window;
        /// Null while it is hidden.
        Ref<UIWindow> shown;
        double level;
    };

    void insert(Entry entry);
    /// Removes the window's entry, and those of windows that are gone.
    Entry take(const Ref<UIWindow>& window);

    std::vector<Entry> entries_;
};

}  // namespace zn
