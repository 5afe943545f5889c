#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/drawing/CGContext.h"
#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/drawing/UIFont.h"
#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// The platform's numbers.
enum class NSTextAlignment { Left, Center, Right, Justified, Natural };
enum class NSLineBreakMode {
    WordWrapping,
    CharWrapping,
    Clipping,
    TruncatingHead,
    TruncatingTail,
    TruncatingMiddle,
};

/// How a text is laid out.
struct TextStyle {
    /// Null means the system font of 12 points.
    Ref<UIFont> font;
    NSTextAlignment alignment = NSTextAlignment::Natural;
    /// Lines wrap by word, or by character for `CharWrapping`; words that are longer than a line
    /// are broken. Clipping and truncation concern the last line that fits, when text is left.
    NSLineBreakMode lineBreak = NSLineBreakMode::WordWrapping;
    /// 0 for any number.
    std::size_t numberOfLines = 0;
};

/// A text measured and broken into lines, immutable and shared: the same text, style and box give
/// the same object from a cache bounded in bytes. Main thread or any other; text is UTF-8 (each
/// malformed sequence shows as U+FFFD), positions are bytes of it.
///
/// Every line is as high as the font's line height, whatever scripts it mixes; one grows only
/// where a fallback font's letters would stick out. A box may be lower than its lines by a tenth
/// of one before the last is left out, and the first is never left out. Extents of a box that are
/// zero, negative, no numbers, or from 100,000 points on, mean any.
class ZN_EXPORT TextLayout final : public NSObject {
    ZN_OBJECT(TextLayout, NSObject)
public:
    struct State;
    explicit TextLayout(std::unique_ptr<State> state);
    ~TextLayout() override;

    static Ref<TextLayout> layout(std::string_view text, const TextStyle& style, Size box);
    /// The text that another one became by an edit, in its style and box: nobody shares it, what
    /// stayed the same is not laid out again, and it knows its carets at once.
    static Ref<TextLayout> editedLayout(std::string_view text, const TextLayout& before);

    struct Line {
        std::size_t start;
        /// Without the line end; with the blanks that it was wrapped at, which take no width, and
        /// with what truncation hides.
        std::size_t length;
        /// In the layout's own coordinates, aligned in the box, or among each other in a box of
        /// any width.
        Rect frame;
        double baseline;
    };

    /// The widest line and all heights: fractional, as measured.
    Size size() const;
    /// At least one.
    const std::vector<Line>& lines() const;
    /// Draws with the layout's origin at `origin`. Baselines are rounded to rows of pixels.
    void draw(const Ref<CGContext>& context, Point origin, const CGColor& color) const;

    /// For editing: the text position nearest to a point, never inside what is seen as one
    /// character, and the caret at a position: 2 points wide, to the right of the place.
    std::size_t positionAt(Point point) const;
    Rect caretAt(std::size_t position) const;
    /// The boxes of the text between two positions, from left to right in each line; several in a
    /// line that mixes directions, none for no text.
    std::vector<Rect> boxesBetween(std::size_t from, std::size_t to) const;
    /// Some lines: `end` is behind the last.
    struct LineRange {
        std::size_t first;
        std::size_t end;
    };
    /// The lines that look different from those of another layout at the same height. Those above
    /// and below look the same there.
    LineRange differingLines(const TextLayout& other) const;

private:
    std::unique_ptr<State> state_;
};

/// Options of measuring, a bit set.
namespace NSStringDrawingOptions {
inline constexpr unsigned UsesLineFragmentOrigin = 1;
inline constexpr unsigned UsesFontLeading = 2;
}  // namespace NSStringDrawingOptions

/// The box a text needs: wrapped to `size.width` with `UsesLineFragmentOrigin`, else the first line
/// alone, with the origin on its baseline. Fractional: round up before use as a view's size. A
/// height leaves out the lines that it has no room for. A null font means the system font of 12
/// points. Absent text (a null view) needs no room, empty text one line of no width.
ZN_EXPORT Rect boundingRectWithSize(std::string_view text, Size size, unsigned options,
                                    const Ref<UIFont>& font);
/// The size of one line.
ZN_EXPORT Size sizeWithFont(std::string_view text, const Ref<UIFont>& font);
/// Draws text wrapped to the rectangle into the current context, if there is one.
ZN_EXPORT void drawText(std::string_view text, const Rect& rect, const TextStyle& style,
                        const CGColor& color);

}  // namespace zn
