#pragma once

#include <list>
#include <mutex>
#include <string_view>
#include <unordered_map>

#include "zarnic/platform/drawing/TextLayout.h"

namespace zn {

/// Layouts by text, style and box; the least recently used go when they take too many bytes.
class TextLayoutCache {
public:
    struct Key {
        Key(std::string_view text, const TextStyle& style, Size box);

        std::string_view text;
        const TextStyle& style;
        Size box;
        std::size_t hash;
    };

    static TextLayoutCache& shared();

    Ref<TextLayout> find(const Key& key);
    /// `state` is the layout's.
    void insert(const Key& key, const Ref<TextLayout>& layout, const TextLayout::State& state);
    void clear();

private:
    struct Entry {
        std::size_t hash;
        Ref<TextLayout> layout;
        const TextLayout::State* state;
        std::size_t byteCount;
    };
    using Entries = std::list<Entry>;

    void remove(Entries::iterator entry);

    std::mutex mutex_;
    /// The most recently used first.
    Entries entries_;
    std::unordered_map<std::size_t, Entries::iterator> byHash_;
    std::size_t byteCount_ = 0;
};

}  // namespace zn
