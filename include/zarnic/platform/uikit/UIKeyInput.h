#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/foundation/NSObject.h"

namespace zn {

class UIView;

/// A part of a text; bytes of its UTF-8.
struct NSRange {
    std::size_t location = 0;
    std::size_t length = 0;

    std::size_t end() const { return location + length; }
    friend bool operator==(const NSRange&, const NSRange&) = default;
};

/// Keys by the numbers of the USB HID Usage Tables 1.4, page 0x07, as the platform has them.
enum class UIKeyboardHIDUsage : std::uint32_t {
    Unknown = 0,
    ReturnOrEnter = 0x28,
    Escape = 0x29,
    DeleteOrBackspace = 0x2A,
    Tab = 0x2B,
    Insert = 0x49,
    Home = 0x4A,
    PageUp = 0x4B,
    DeleteForward = 0x4C,
    End = 0x4D,
    PageDown = 0x4E,
    RightArrow = 0x4F,
    LeftArrow = 0x50,
    DownArrow = 0x51,
    UpArrow = 0x52,
    KeypadEnter = 0x58,
};

/// The platform's numbers, a bit set.
namespace UIKeyModifierFlags {
inline constexpr unsigned AlphaShift = 1u << 16, Shift = 1u << 17, Control = 1u << 18,
                          Alternate = 1u << 19, Command = 1u << 20, NumericPad = 1u << 21;
}  // namespace UIKeyModifierFlags

/// A key that was pressed on a hardware keyboard, or is repeating.
struct UIKey {
    UIKeyboardHIDUsage keyCode = UIKeyboardHIDUsage::Unknown;
    /// Bits of `UIKeyModifierFlags`.
    unsigned modifierFlags = 0;
    /// What the key types without control keys and shift, in the keyboard's layout: "a" for Ctrl+A.
    std::string charactersIgnoringModifiers = {};
};

/// The platform's numbers.
enum class UIKeyboardType : std::int64_t {
    Default = 0,
    NumberPad = 4,
    EmailAddress = 7,
    DecimalPad = 8
};
/// The platform's numbers: what the keyboard panel's return key says.
enum class UIReturnKeyType : std::int64_t {
    Default = 0,
    Go = 1,
    Join = 3,
    Next = 4,
    Search = 6,
    Send = 7,
    Done = 9
};

/// What takes text while it is the first responder: a view that has this beside `UIView`. Keys,
/// input methods and the keyboard panel come in here. Main thread only.
class ZN_EXPORT UIKeyInput {
public:
    virtual ~UIKeyInput();

    virtual bool hasText() const = 0;
    /// In the place of what is selected or being composed. "\n" is the return key.
    virtual void insertText(std::string_view text) = 0;
    /// The selection, else the grapheme before the caret.
    virtual void deleteBackward() = 0;
    /// A key that types nothing by itself; false when it means nothing here.
    virtual bool pressKey(const UIKey&) { return false; }

    /// An input method shows what it is composing; an empty text ends that without a trace. The
    /// selection is a part of the marked text.
    virtual void setMarkedText(std::string_view, NSRange) {}
    /// What is being composed becomes text.
    virtual void unmarkText() {}
    /// Where an input method may put its window; screen coordinates.
    virtual Rect caretRectOnScreen() const { return {}; }

    /// It is not the first responder any more, though it was not asked, or refused.
    virtual void lostFirstResponder() {}

    virtual UIKeyboardType keyboardType() const { return UIKeyboardType::Default; }
    virtual UIReturnKeyType returnKeyType() const { return UIReturnKeyType::Default; }
    virtual bool secureTextEntry() const { return false; }
    /// Shown in the keyboard's place, as high as it is now; null for the keyboard.
    virtual Ref<UIView> inputView() const { return nullptr; }
    /// Shown above the keyboard, as high as it is now; null for none.
    virtual Ref<UIView> inputAccessoryView() const { return nullptr; }
};

}  // namespace zn
