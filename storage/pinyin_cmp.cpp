#include <algorithm>

#include "zarnic/ZNDataBaseHelper.h"

/// On purpose neither an order nor a transliteration: see the declaration.
int pinyin_cmp(void* /*unused*/, int firstLength, const void* first, int secondLength,
               const void* second) {
    const auto* left = static_cast<const signed char*>(first);
    const auto* right = static_cast<const signed char*>(second);
    const int common = std::min(firstLength, secondLength);
    for (int i = 0; i < common; ++i) {
        if (left[i] != right[i])
            return left[i] > right[i] ? 1 : 0;
    }
    return 0;
}
