#include "platform/foundation/bundle/StringsParser.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace zn {
namespace {

/// Codes 0x80 to 0xFF of the encoding that octal escapes are written in (the Unicode Consortium's
/// mapping table NEXTSTEP.TXT).
constexpr std::uint16_t nextLatin[] = {
    0x00A0, 0x00C0, 0x00C1, 0x00C2, 0x00C3, 0x00C4, 0x00C5, 0x00C7, 0x00C8, 0x00C9, 0x00CA, 0x00CB,
    0x00CC, 0x00CD, 0x00CE, 0x00CF, 0x00D0, 0x00D1, 0x00D2, 0x00D3, 0x00D4, 0x00D5, 0x00D6, 0x00D9,
    0x00DA, 0x00DB, 0x00DC, 0x00DD, 0x00DE, 0x00B5, 0x00D7, 0x00F7, 0x00A9, 0x00A1, 0x00A2, 0x00A3,
    0x2044, 0x00A5, 0x0192, 0x00A7, 0x00A4, 0x2019, 0x201C, 0x00AB, 0x2039, 0x203A, 0xFB01, 0xFB02,
    0x00AE, 0x2013, 0x2020, 0x2021, 0x00B7, 0x00A6, 0x00B6, 0x2022, 0x201A, 0x201E, 0x201D, 0x00BB,
    0x2026, 0x2030, 0x00AC, 0x00BF, 0x00B9, 0x02CB, 0x00B4, 0x02C6, 0x02DC, 0x00AF, 0x02D8, 0x02D9,
    0x00A8, 0x00B2, 0x02DA, 0x00B8, 0x00B3, 0x02DD, 0x02DB, 0x02C7, 0x2014, 0x00B1, 0x00BC, 0x00BD,
    0x00BE, 0x00E0, 0x00E1, 0x00E2, 0x00E3, 0x00E4, 0x00E5, 0x00E7, 0x00E8, 0x00E9, 0x00EA, 0x00EB,
    0x00EC, 0x00C6, 0x00ED, 0x00AA, 0x00EE, 0x00EF, 0x00F0, 0x00F1, 0x0141, 0x00D8, 0x0152, 0x00BA,
    0x00F2, 0x00F3, 0x00F4, 0x00F5, 0x00F6, 0x00E6, 0x00F9, 0x00FA, 0x00FB, 0x0131, 0x00FC, 0x00FD,
    0x0142, 0x00F8, 0x0153, 0x00DF, 0x00FE, 0x00FF, 0xFFFD, 0xFFFD,
};
static_assert(std::size(nextLatin) == 128);

bool isBlank(char character) {
    return static_cast<unsigned char>(character) <= ' ';
}

bool isOfBareWord(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') ||
           std::string_view("_$/:.-").find(character) != std::string_view::npos;
}

bool isOctal(char character) {
    return character >= '0' && character <= '7';
}

int hexadecimalDigit(char character) {
    if (character >= '0' && character <= '9')
        return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Four hexadecimal digits, or nothing.
bool readUnit(const char* at, const char* end, char32_t& unit) {
    if (end - at < 4)
        return false;
    unit = 0;
    for (int place = 0; place < 4; ++place) {
        const int digit = hexadecimalDigit(at[place]);
        if (digit < 0)
            return false;
        unit = unit * 16 + static_cast<char32_t>(digit);
    }
    return true;
}

char32_t controlOf(char escape) {
    switch (escape) {
        case 'a':
            return '\a';
        case 'b':
            return '\b';
        case 'f':
            return '\f';
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        case 't':
            return '\t';
        case 'v':
            return '\v';
        default:
            return 0;
    }
}

}  // namespace

StringsParser::StringsParser(char* begin, char* end) : begin_(begin), here_(begin), end_(end) {}

bool StringsParser::read(std::vector<StringsTable::Entry>& entries) {
    while (skipBlanks() && here_ != end_) {
        StringsTable::Entry entry;
        if (!readText(entry.key) || !skipBlanks())
            return false;
        entry.value = entry.key;
        if (here_ != end_ && *here_ == '=') {
            ++here_;
            if (!skipBlanks() || !readText(entry.value) || !skipBlanks())
                return false;
        }
        if (here_ == end_ || *here_ != ';')
            return fail("a semicolon is missing");
        ++here_;
        entries.push_back(entry);
    }
    return wrong_ == nullptr;
}

std::string StringsParser::error() const {
    if (wrong_ == nullptr)
        return {};
    const auto lines = std::count(static_cast<const char*>(begin_), wrongAt_, '\n');
    return "line " + std::to_string(1 + lines - escapedLines_) + ": " + wrong_;
}

bool StringsParser::skipBlanks() {
    while (here_ != end_) {
        const std::string_view rest(here_, static_cast<std::size_t>(end_ - here_));
        if (isBlank(*here_)) {
            ++here_;
        } else if (rest.starts_with("//")) {
            here_ = std::find(here_, end_, '\n');
        } else if (rest.starts_with("/*")) {
            const auto close = rest.find("*/", 2);
            if (close == rest.npos)
                return fail("a comment does not end");
            here_ += close + 2;
        } else {
            break;
        }
    }
    return true;
}

bool StringsParser::readText(std::string_view& text) {
    if (here_ == end_)
        return fail("a text is missing");
    if (*here_ == '"' || *here_ == '\'')
        return readQuoted(text);
    const char* const begin = here_;
    here_ = std::find_if_not(here_, end_, isOfBareWord);
    if (here_ == begin)
        return fail("a text is missing");
    text = {begin, static_cast<std::size_t>(here_ - begin)};
    return true;
}

bool StringsParser::readQuoted(std::string_view& text) {
    const char quote = *here_++;
    char* const begin = here_;
    while (here_ != end_ && *here_ != quote && *here_ != '\\')
        ++here_;
    if (here_ == end_) {
        here_ = begin;
        return fail("a text does not end");
    }
    if (*here_ == '\\')
        return readEscaped(quote, begin, text);
    text = {begin, static_cast<std::size_t>(here_++ - begin)};
    return true;
}

/// From the first escape on the text moves towards its beginning. What it leaves behind is blanked
/// out, so that the lines can still be counted.
bool StringsParser::readEscaped(char quote, char* begin, std::string_view& text) {
    char* out = here_;
    while (here_ != end_ && *here_ != quote) {
        if (*here_ == '\\' && here_ + 1 != end_)
            readEscape(out);
        else
            *out++ = *here_++;
    }
    if (here_ == end_) {
        here_ = begin;
        return fail("a text does not end");
    }
    text = {begin, static_cast<std::size_t>(out - begin)};
    std::fill(out, here_, ' ');
    ++here_;
    return true;
}

void StringsParser::readEscape(char*& out) {
    const char escape = *++here_;
    char32_t character = controlOf(escape);
    if (character != 0)
        ++here_;
    else if (isOctal(escape))
        character = readOctal();
    else if (escape != 'U' || !readUnicode(character)) {
        *out++ = *here_++;
        return;
    }
    if (character == '\n')
        ++escapedLines_;
    std::size_t length = 0;
    U8_APPEND_UNSAFE(out, length, character);
    out += length;
}

char32_t StringsParser::readOctal() {
    unsigned code = 0;
    for (int digits = 0; digits < 3 && here_ != end_ && isOctal(*here_); ++digits)
        code = code * 8 + static_cast<unsigned>(*here_++ - '0');
    code &= 0xFF;
    return code < 0x80 ? code : nextLatin[code - 0x80];
}

/// Two escapes that are the halves of one character give that character, half a one U+FFFD.
bool StringsParser::readUnicode(char32_t& character) {
    if (!readUnit(here_ + 1, end_, character))
        return false;
    here_ += 5;
    char32_t trail = 0;
    const bool another = end_ - here_ >= 6 && here_[0] == '\\' && here_[1] == 'U' &&
                         readUnit(here_ + 2, end_, trail);
    if (U16_IS_LEAD(character) && another && U16_IS_TRAIL(trail)) {
        here_ += 6;
        character = static_cast<char32_t>(U16_GET_SUPPLEMENTARY(character, trail));
    } else if (U_IS_SURROGATE(character)) {
        character = 0xFFFD;
    }
    return true;
}

bool StringsParser::fail(const char* what) {
    wrong_ = what;
    wrongAt_ = here_;
    return false;
}

}  // namespace zn
