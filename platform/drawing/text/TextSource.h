#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zn {

/// A text as it can be shaped: valid UTF-8 without control characters other than tabs and line
/// ends. Each malformed sequence is one U+FFFD; a control character takes no room. A text that is
/// fine already is not copied and must outlive this.
class TextSource {
public:
    explicit TextSource(std::string_view original);
    TextSource(const TextSource&) = delete;
    TextSource& operator=(const TextSource&) = delete;

    std::string_view text() const { return text_; }
    /// The byte of the original that a byte of `text` stands for.
    std::size_t originalPosition(std::size_t position) const;

private:
    struct Replacement {
        std::size_t end;
        std::size_t originalEnd;
    };

    std::string replaced_;
    std::string_view text_;
    std::vector<Replacement> replacements_;
};

/// A part of a text up to a line end (CR LF, LF, CR, U+0085, U+2028, U+2029) or the text's end.
struct TextParagraph {
    std::size_t start;
    std::size_t end;
    /// After the line end.
    std::size_t next;
    bool ended;
    /// U+2028 breaks the line inside a paragraph, whose direction goes on.
    bool continues;
};
TextParagraph paragraphAt(std::string_view text, std::size_t start);

bool isBlank(std::string_view text);
/// The nearest beginning of a character at or before the position.
std::size_t characterStart(std::string_view text, std::size_t position);

}  // namespace zn
