#include "platform/foundation/base/EightBytes.h"
#include "platform/foundation/json/JSONWriter.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {

void JSONWriter::writeText(std::string_view text) {
    put('"');
    std::uint64_t beyondASCII = 0;
    for (std::string_view rest = text; !rest.empty();) {
        rest.remove_prefix(copyPlain(rest, beyondASCII));
        if (rest.empty())
            break;
        writeSpecial(rest.front());
        rest.remove_prefix(1);
    }
    put('"');
    if (beyondASCII != 0 && !isValidUTF8(text))
        allUTF8_ = false;
}

std::size_t JSONWriter::copyPlain(std::string_view text, std::uint64_t& beyondASCII) {
    const bool keepsSpaces = layout_ != JSONLayout::Stripped;
    // Eight bytes are stored each time, however few of them count.
    char* place = room(text.size() + 8);
    const char* const start = text.data();
    const char* const end = start + text.size();
    const char* cursor = start;
    while (cursor != end) {
        const auto count = std::min<std::size_t>(8, static_cast<std::size_t>(end - cursor));
        const auto bytes = count == 8 ? EightBytes::at(cursor) : EightBytes::upTo(cursor, count);
        bytes.store(place);
        beyondASCII |= bytes.beyondASCII();
        std::uint64_t stops = bytes.textStops() | bytes.equal('/');
        if (!keepsSpaces)
            stops |= bytes.equal(' ');
        const auto plain = stops == 0 ? count : static_cast<std::size_t>(EightBytes::first(stops));
        cursor += plain;
        place += plain;
        if (stops != 0 && (keepsSpaces || *cursor != ' '))
            break;
        // The space is left out.
        cursor += stops == 0 ? 0 : 1;
    }
    size_ = static_cast<std::size_t>(place - bytes_.get());
    return static_cast<std::size_t>(cursor - start);
}

void JSONWriter::writeSpecial(char character) {
    static constexpr std::string_view characters = "\"\\/\b\f\n\r\t";
    static constexpr std::string_view letters = "\"\\/bfnrt";
    static constexpr char digits[] = "0123456789abcdef";
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (character == characters[i]) {
            const char escape[] = {'\\', letters[i]};
            return put({escape, sizeof escape});
        }
    }
    const char escape[] = {'\\', 'u', '0', '0', digits[character >> 4], digits[character & 15]};
    put({escape, sizeof escape});
}

}  // namespace zn
