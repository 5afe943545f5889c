#include "platform/drawing/text/TextLayoutCache.h"

#include <functional>

#include "platform/drawing/text/TextLayoutState.h"

namespace zn {
namespace {

constexpr std::size_t largestByteCount = 16 << 20;
/// A single layout beyond this would push out everything else.
constexpr std::size_t largestEntry = largestByteCount / 8;

bool matches(const TextLayoutCache::Key& key, const TextLayout::State& state) {
    return key.text == state.text && key.box == state.box &&
           key.style.alignment == state.style.alignment &&
           key.style.lineBreak == state.style.lineBreak &&
           key.style.numberOfLines == state.style.numberOfLines &&
           (key.style.font == state.style.font || key.style.font->isEqual(*state.style.font));
}

}  // namespace

TextLayoutCache::Key::Key(std::string_view keyText, const TextStyle& keyStyle, Size keyBox)
    : text(keyText), style(keyStyle), box(keyBox), hash(std::hash<std::string_view>{}(keyText)) {
    for (const std::size_t part :
         {style.font->hash(), std::hash<double>{}(box.width), std::hash<double>{}(box.height),
          static_cast<std::size_t>(style.alignment), static_cast<std::size_t>(style.lineBreak),
          style.numberOfLines})
        hash = (hash ^ part) * 0x9E3779B97F4A7C15U;
}

TextLayoutCache& TextLayoutCache::shared() {
    static auto& cache = *new TextLayoutCache;
    return cache;
}

Ref<TextLayout> TextLayoutCache::find(const Key& key) {
    const std::lock_guard guard(mutex_);
    const auto found = byHash_.find(key.hash);
    if (found == byHash_.end() || !matches(key, *found->second->state))
        return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return found->second->layout;
}

void TextLayoutCache::insert(const Key& key, const Ref<TextLayout>& layout,
                             const TextLayout::State& state) {
    const std::size_t byteCount = state.byteCount();
    if (byteCount > largestEntry)
        return;
    const std::lock_guard guard(mutex_);
    if (const auto old = byHash_.find(key.hash); old != byHash_.end())
        remove(old->second);
    entries_.push_front({key.hash, layout, &state, byteCount});
    byHash_[key.hash] = entries_.begin();
    byteCount_ += byteCount;
    while (byteCount_ > largestByteCount)
        remove(std::prev(entries_.end()));
}

void TextLayoutCache::clear() {
    const std::lock_guard guard(mutex_);
    entries_.clear();
    byHash_.clear();
    byteCount_ = 0;
}

void TextLayoutCache::remove(Entries::iterator entry) {
    byteCount_ -= entry->byteCount;
    byHash_.erase(entry->hash);
    entries_.erase(entry);
}

}  // namespace zn
