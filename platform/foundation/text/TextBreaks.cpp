#include "platform/foundation/text/TextBreaks.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <memory>

#include "platform/foundation/text/Utf8.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

using Maker = icu::BreakIterator* (*)(const icu::Locale&, UErrorCode&);

/// ICU's rules over a text that it reads where it lies.
class Breaks {
public:
    Breaks(icu::BreakIterator& iterator, std::string_view text) : iterator_(iterator) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUTF8(&text_, text.data(), static_cast<std::int64_t>(text.size()), &status);
        iterator_.setText(&text_, status);
    }
    ~Breaks() { utext_close(&text_); }
    Breaks(const Breaks&) = delete;
    Breaks& operator=(const Breaks&) = delete;

    icu::BreakIterator* operator->() { return &iterator_; }

private:
    icu::BreakIterator& iterator_;
    UText text_ = UTEXT_INITIALIZER;
};

std::unique_ptr<icu::BreakIterator> made(Maker maker) {
    UErrorCode status = U_ZERO_ERROR;
    return std::unique_ptr<icu::BreakIterator>(maker(icu::Locale::getRoot(), status));
}

/// Rules take long to load and are not to be shared between threads.
icu::BreakIterator& graphemes() {
    thread_local const auto iterator = made(icu::BreakIterator::createCharacterInstance);
    return *iterator;
}

icu::BreakIterator& words() {
    thread_local const auto iterator = made(icu::BreakIterator::createWordInstance);
    return *iterator;
}

bool isWord(std::int32_t status) {
    return status >= UBRK_WORD_NONE_LIMIT;
}

bool isBlank(std::string_view text, std::size_t position) {
    const char32_t character = nextCharacter(text, position);
    const bool endsLine = (character >= 0x0A && character <= 0x0D) || character == 0x85 ||
                          character == 0x2028 || character == 0x2029;
    return isWhitespaceOrNewline(character) && !endsLine;
}

/// The run of blanks around one.
TextPiece blanksAt(std::string_view text, TextPiece piece) {
    while (piece.end < text.size() && isBlank(text, piece.end))
        piece.end = nextGrapheme(text, piece.end);
    while (piece.start > 0) {
        const std::size_t before = previousGrapheme(text, piece.start);
        if (!isBlank(text, before))
            break;
        piece.start = before;
    }
    return piece;
}

std::int32_t offset(std::size_t position) {
    return static_cast<std::int32_t>(position);
}

}  // namespace

std::size_t nextGrapheme(std::string_view text, std::size_t position) {
    if (position >= text.size())
        return text.size();
    Breaks breaks(graphemes(), text);
    return static_cast<std::size_t>(breaks->following(offset(position)));
}

std::size_t previousGrapheme(std::string_view text, std::size_t position) {
    position = std::min(position, text.size());
    if (position == 0)
        return 0;
    Breaks breaks(graphemes(), text);
    return static_cast<std::size_t>(std::max(breaks->preceding(offset(position)), 0));
}

std::size_t graphemeStart(std::string_view text, std::size_t position) {
    if (position >= text.size())
        return text.size();
    auto start = offset(position);
    U8_SET_CP_START(reinterpret_cast<const std::uint8_t*>(text.data()), 0, start);
    position = static_cast<std::size_t>(start);
    Breaks breaks(graphemes(), text);
    if (breaks->isBoundary(start) != 0)
        return position;
    return static_cast<std::size_t>(std::max(breaks->preceding(offset(position)), 0));
}

std::size_t nextWordEnd(std::string_view text, std::size_t position) {
    if (position >= text.size())
        return text.size();
    Breaks breaks(words(), text);
    std::int32_t end = breaks->following(offset(position));
    while (end != icu::BreakIterator::DONE && !isWord(breaks->getRuleStatus()))
        end = breaks->next();
    return end == icu::BreakIterator::DONE ? text.size() : static_cast<std::size_t>(end);
}

std::size_t previousWordStart(std::string_view text, std::size_t position) {
    position = std::min(position, text.size());
    if (position == 0)
        return 0;
    Breaks breaks(words(), text);
    const bool ended = breaks->isBoundary(offset(position)) != 0;
    // The status of a boundary tells of the piece before it.
    bool word = ended ? isWord(breaks->getRuleStatus())
                      : (breaks->following(offset(position)), isWord(breaks->getRuleStatus()));
    std::int32_t start = breaks->preceding(offset(position));
    while (start > 0 && !word) {
        word = isWord(breaks->getRuleStatus());
        start = breaks->previous();
    }
    return static_cast<std::size_t>(std::max(start, 0));
}

TextPiece wordAt(std::string_view text, std::size_t position) {
    position = std::min(position, text.size());
    if (text.empty())
        return {0, 0};
    Breaks breaks(words(), text);
    const bool boundary = breaks->isBoundary(offset(position)) != 0;
    const bool afterWord = boundary && position > 0 && isWord(breaks->getRuleStatus());
    const auto end = breaks->following(offset(position));
    const bool inWord = end != icu::BreakIterator::DONE && isWord(breaks->getRuleStatus());
    if (end == icu::BreakIterator::DONE || (afterWord && !inWord)) {
        const auto start = breaks->preceding(offset(position));
        return {static_cast<std::size_t>(std::max(start, 0)), position};
    }
    const std::size_t start =
        boundary ? position : static_cast<std::size_t>(std::max(breaks->preceding(end), 0));
    const TextPiece piece{start, static_cast<std::size_t>(end)};
    return isBlank(text, start) ? blanksAt(text, piece) : piece;
}

}  // namespace zn
