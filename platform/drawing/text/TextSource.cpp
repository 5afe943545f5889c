#include "platform/drawing/text/TextSource.h"

#include <algorithm>

namespace zn {
namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";
constexpr std::string_view wordJoiner = "\xE2\x81\xA0";

unsigned byteAt(std::string_view text, std::size_t position) {
    return position < text.size() ? static_cast<unsigned char>(text[position]) : 0;
}

struct Lead {
    std::size_t length;
    /// What the second byte may be (Unicode 15, table 3-7).
    unsigned lowest;
    unsigned highest;
};

Lead leadOf(unsigned byte) {
    if (byte < 0x80)
        return {1, 0, 0};
    if (byte >= 0xC2 && byte <= 0xDF)
        return {2, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {3, byte == 0xE0 ? 0xA0U : 0x80U, byte == 0xED ? 0x9FU : 0xBFU};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {4, byte == 0xF0 ? 0x90U : 0x80U, byte == 0xF4 ? 0x8FU : 0xBFU};
    return {0, 0, 0};
}

struct Sequence {
    std::size_t length;
    bool valid;
};

/// The character at the position, or the longest beginning of one that is cut off there.
Sequence sequenceAt(std::string_view text, std::size_t position) {
    const Lead lead = leadOf(byteAt(text, position));
    if (lead.length < 2)
        return {1, lead.length == 1};
    std::size_t length = 1;
    for (; length < lead.length; ++length) {
        const unsigned byte = byteAt(text, position + length);
        if (byte < (length == 1 ? lead.lowest : 0x80) || byte > (length == 1 ? lead.highest : 0xBF))
            return {length, false};
    }
    return {length, true};
}

bool isControl(unsigned byte) {
    return (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r') || byte == 0x7F;
}

std::size_t firstUnfit(std::string_view text, std::size_t position) {
    while (position < text.size()) {
        const Sequence sequence = sequenceAt(text, position);
        if (!sequence.valid || isControl(byteAt(text, position)))
            break;
        position += sequence.length;
    }
    return position;
}

std::size_t lineEndLength(std::string_view text, std::size_t position) {
    const std::string_view rest = text.substr(position);
    if (rest.starts_with("\r\n") || rest.starts_with("\xC2\x85"))
        return 2;
    if (rest.starts_with("\xE2\x80\xA8") || rest.starts_with("\xE2\x80\xA9"))
        return 3;
    return rest.starts_with('\n') || rest.starts_with('\r') ? 1 : 0;
}

}  // namespace

TextSource::TextSource(std::string_view original) : text_(original) {
    std::size_t position = firstUnfit(original, 0);
    if (position == original.size())
        return;
    replaced_ = original.substr(0, position);
    while (position < original.size()) {
        const Sequence sequence = sequenceAt(original, position);
        replaced_ += sequence.valid ? wordJoiner : replacementCharacter;
        position += sequence.length;
        replacements_.push_back({replaced_.size(), position});
        const std::size_t next = firstUnfit(original, position);
        replaced_ += original.substr(position, next - position);
        position = next;
    }
    text_ = replaced_;
}

std::size_t TextSource::originalPosition(std::size_t position) const {
    const auto next = std::ranges::upper_bound(replacements_, position, {}, &Replacement::end);
    std::size_t base = 0;
    std::size_t originalBase = 0;
    if (next != replacements_.begin()) {
        base = std::prev(next)->end;
        originalBase = std::prev(next)->originalEnd;
    }
    const std::size_t result = originalBase + (position - base);
    if (next == replacements_.end())
        return result;
    // Inside a replacement: where the replaced sequence begins.
    const std::size_t replacementStart = next->end - replacementCharacter.size();
    return position < replacementStart ? result : originalBase + (replacementStart - base);
}

TextParagraph paragraphAt(std::string_view text, std::size_t start) {
    for (std::size_t position = start;; ++position) {
        position = text.find_first_of("\r\n\xC2\xE2", position);
        if (position == std::string_view::npos)
            return {start, text.size(), text.size(), false, false};
        if (const std::size_t length = lineEndLength(text, position))
            return {start, position, position + length, true,
                    text.substr(position, length) == "\xE2\x80\xA8"};
    }
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::size_t characterStart(std::string_view text, std::size_t position) {
    while (position > 0 && position < text.size() && (byteAt(text, position) & 0xC0) == 0x80)
        --position;
    return position;
}

}  // namespace zn
