#include "platform/uikit/screen/WindowStack.h"

#include <algorithm>

namespace zn {

void WindowStack::add(const Ref<UIWindow>& window) {
    insert({window, nullptr, window->windowLevel()});
}

void WindowStack::insert(Entry entry) {
    const auto place =
        std::upper_bound(entries_.begin(), entries_.end(), entry.level,
                         [](double level, const Entry& other) { return level < other.level; });
    entries_.insert(place, std::move(entry));
}

WindowStack::Entry WindowStack::take(const Ref<UIWindow>& window) {
    Entry taken{window, nullptr, window->windowLevel()};
    std::erase_if(entries_, [&](const Entry& entry) {
        const Ref<UIWindow> present = entry.window.lock();
        if (present == window)
            taken.shown = entry.shown;
        return !present || present == window;
    });
    return taken;
}

void WindowStack::show(const Ref<UIWindow>& window) {
    Entry entry = take(window);
    entry.shown = window;
    insert(std::move(entry));
}

void WindowStack::hide(const Ref<UIWindow>& window) {
    Entry entry = take(window);
    entry.shown = nullptr;
    insert(std::move(entry));
}

void WindowStack::moveToLevel(const Ref<UIWindow>& window) {
    insert(take(window));
}

std::vector<Ref<UIWindow>> WindowStack::all() const {
    std::vector<Ref<UIWindow>> windows;
    for (const Entry& entry : entries_)
        if (Ref<UIWindow> window = entry.window.lock())
            windows.push_back(std::move(window));
    return windows;
}

std::vector<Ref<UIWindow>> WindowStack::visible() const {
    std::vector<Ref<UIWindow>> windows;
    for (const Entry& entry : entries_)
        if (entry.shown)
            windows.push_back(entry.shown);
    return windows;
}

}  // namespace zn
