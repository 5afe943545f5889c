#pragma once

#include <string>
#include <vector>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/uikit/UIKeyInput.h"

namespace zn {

enum class KeyboardPage { Letters, Symbols, MoreSymbols, Digits };

struct KeyboardKey {
    /// Text types its label; the others do what they are called.
    enum class Kind { Text, Space, Shift, Delete, Return, Letters, Symbols, MoreSymbols };

    Kind kind;
    std::string label;
    Rect frame;
};

/// How high a page of keys is, in points.
double keyboardHeight();
/// The keys of a page, as wide as asked, in points from its upper left corner.
std::vector<KeyboardKey> keyboardKeys(KeyboardPage page, double width, UIKeyboardType type,
                                      UIReturnKeyType returnKey);

}  // namespace zn
