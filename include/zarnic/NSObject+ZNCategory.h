#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/Value.h"

namespace zn {

/// False for what counts as null: an absent value, the null object, an empty text, empty data and
/// a null reference. True for everything else, empty arrays and dictionaries included.
ZN_EXPORT bool zn_NotNull(const Value& value);
inline bool zn_NotNull(std::string_view text) {
    return !text.empty();
}
inline bool zn_NotNull(const std::string& text) {
    return !text.empty();
}
inline bool zn_NotNull(const char* text) {
    return text != nullptr && *text != '\0';
}
inline bool zn_NotNull(const std::optional<std::string>& text) {
    return text && !text->empty();
}
template <class T>
bool zn_NotNull(const Ref<T>& object) {
    return object != nullptr;
}

}  // namespace zn
