#pragma once

#include <cstddef>

#include "zarnic/platform/uikit/UITextInput.h"

namespace zn {

/// Selects text with a finger: a tap puts the caret, a drag selects, two taps take the word and
/// three the paragraph, and a drag that begins so goes on by words or paragraphs.
class TextTouch {
public:
    explicit TextTouch(UITextInput& input) : input_(input) {}

    /// Places are in the text's coordinates.
    void begin(Point place, int taps);
    void drag(Point place);
    /// The finger has left where it came down.
    void tap(Point place);
    /// Back to what was selected before it began.
    void cancel();

    /// Whether the finger selects more than single letters, which needs no drag.
    bool selectsWhole() const { return unit_ != Unit::Character; }

private:
    enum class Unit { Character, Word, Paragraph };
    struct Span {
        std::size_t start;
        std::size_t end;
    };

    Span spanAt(std::size_t position) const;
    void select(std::size_t anchor, std::size_t focus, bool atLineEnd);

    UITextInput& input_;
    Unit unit_ = Unit::Character;
    Span origin_{};
    Span before_{};
};

}  // namespace zn
