#pragma once

#include <string_view>
#include <vector>

#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/uikit/UIKeyInput.h"

namespace zn {

/// A place between two characters; where a line is wrapped, whether at its end or at the next
/// one's beginning.
struct TextPlace {
    std::size_t position = 0;
    bool atLineEnd = false;
};

/// A long text laid out paragraph by paragraph, so that a change lays out again what it touches and
/// nothing else. Positions are bytes of the whole text, coordinates points from its top left
/// corner. Main thread only.
class ZN_EXPORT TextFlow {
public:
    /// A height below which and above which nothing has changed.
    struct Band {
        double top;
        double bottom;
    };

    /// Lines wrap at the width; 0 for any.
    void setStyle(const TextStyle& style, double width, std::string_view text);
    void setText(std::string_view text);
    /// A part of the text, whose present state is `text`, was replaced. Returns what looks
    /// different now.
    Band replace(NSRange removed, std::size_t inserted, std::string_view text);

    Size size() const { return size_; }
    double lineHeight() const;
    TextPlace placeAt(Point point) const;
    Rect caretAt(TextPlace place) const;
    /// What is behind the text between two positions, inside the band: boxes that reach to the
    /// right end where the text goes on in the next line.
    std::vector<Rect> boxesBetween(NSRange range, Band band) const;
    /// The ends of the line that a place is in.
    TextPlace lineStart(TextPlace place) const;
    TextPlace lineEnd(TextPlace place) const;
    bool runsRightToLeft(TextPlace place) const;
    /// Draws the paragraphs that meet the band, the whole text's corner at (0, 0).
    void draw(const Ref<CGContext>& context, Band band, const CGColor& color) const;

private:
    struct Paragraph {
        std::size_t start;
        /// Without and with the line end.
        std::size_t length;
        std::size_t next;
        double y;
        Ref<TextLayout> layout;

        double bottom() const { return y + layout->size().height; }
    };

    enum class End { OfPart, OfText };
    /// `before` is what the first paragraph was, if it was edited.
    std::vector<Paragraph> laidOut(std::string_view text, std::size_t from, std::size_t to, End end,
                                   const TextLayout* before = nullptr) const;
    void measure(std::size_t first);
    std::size_t indexOf(std::size_t position) const;
    std::size_t indexAt(double y) const;
    std::size_t lineOf(const Paragraph& paragraph, TextPlace place) const;
    void addBoxes(const Paragraph& paragraph, NSRange range, Band band,
                  std::vector<Rect>& boxes) const;

    TextStyle style_;
    double width_ = 0;
    std::vector<Paragraph> paragraphs_;
    Size size_;
};

}  // namespace zn
