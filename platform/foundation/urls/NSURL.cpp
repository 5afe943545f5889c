#include "zarnic/platform/foundation/NSURL.h"

#include <charconv>
#include <functional>

#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

bool isLetter(char character) {
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'z';
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isSchemeCharacter(char character) {
    return isLetter(character) || isDigit(character) || character == '+' || character == '-' ||
           character == '.';
}

/// The value of two hexadecimal digits at the beginning, or -1.
int escapedByte(std::string_view digits) {
    unsigned value = 0;
    const char* end = digits.data() + std::min<std::size_t>(2, digits.size());
    const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
    return error == std::errc() && stop == digits.data() + 2 ? static_cast<int>(value) : -1;
}

/// Whether the character may stand in a URL anywhere; `%` and `#` only in their places.
bool isLegal(char character) {
    constexpr std::string_view marks = "!$&'()*+,-./:;=?@_~[]";
    return isLetter(character) || isDigit(character) || marks.find(character) != marks.npos;
}

bool isURLText(std::string_view text) {
    bool fragmentBegun = false;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char character = text[index];
        if (character == '#' && !fragmentBegun)
            fragmentBegun = true;
        else if (character == '%' ? escapedByte(text.substr(index + 1)) < 0 : !isLegal(character))
            return false;
    }
    return true;
}

/// Nothing when the bytes are not UTF-8.
std::optional<std::string> decoded(std::string_view text) {
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '%') {
            result += text[index];
            continue;
        }
        result += static_cast<char>(escapedByte(text.substr(index + 1)));
        index += 2;
    }
    return isValidUTF8(result) ? std::optional(result) : std::nullopt;
}

/// Takes what follows the first `mark` off the end of the text, with the mark itself.
std::optional<std::string> takeTail(std::string_view& text, char mark) {
    const std::size_t place = text.find(mark);
    if (place == text.npos)
        return std::nullopt;
    std::string tail(text.substr(place + 1));
    text = text.substr(0, place);
    return tail;
}

std::optional<std::string> takeScheme(std::string_view& text) {
    if (text.empty() || !isLetter(text.front()))
        return std::nullopt;
    std::size_t length = 1;
    while (length < text.size() && isSchemeCharacter(text[length]))
        ++length;
    if (length == text.size() || text[length] != ':')
        return std::nullopt;
    std::string scheme(text.substr(0, length));
    text.remove_prefix(length + 1);
    return scheme;
}

std::optional<std::string> decodedPath(std::string_view path) {
    if (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return decoded(path);
}

std::optional<int> portNumber(std::string_view digits) {
    int port = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, port);
    if (digits.empty() || error != std::errc() || stop != end || port < 0 || port > 65535)
        return std::nullopt;
    return port;
}

}  // namespace

NSURL::NSURL(Key, std::string text) : text_(std::move(text)) {
    split();
}

Ref<NSURL> NSURL::URLWithString(std::string_view text) {
    return isURLText(text) ? make<NSURL>(Key(), std::string(text)) : nullptr;
}

void NSURL::split() {
    std::string_view rest = text_;
    fragment_ = takeTail(rest, '#');
    scheme_ = takeScheme(rest);
    const bool opaque = scheme_ && !rest.empty() && rest.front() != '/';
    if (opaque)
        return;
    query_ = takeTail(rest, '?');
    const bool hasNetworkPart = rest.starts_with("//");
    if (hasNetworkPart) {
        rest.remove_prefix(2);
        const std::size_t length = std::min(rest.find('/'), rest.size());
        splitNetworkPart(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    parameters_ = takeTail(rest, ';');
    if (hasNetworkPart || !rest.empty())
        path_ = decodedPath(rest);
}

void NSURL::splitNetworkPart(std::string_view part) {
    const std::size_t at = part.rfind('@');
    if (at != part.npos) {
        std::string_view account = part.substr(0, at);
        if (const auto password = takeTail(account, ':'))
            password_ = decoded(*password);
        user_ = decoded(account);
        part.remove_prefix(at + 1);
    }
    splitHost(part);
}

void NSURL::splitHost(std::string_view part) {
    std::size_t hostEnd = part.find(':');
    if (part.starts_with('[') && part.find(']') != part.npos) {
        hostEnd = part.find(']');
        host_ = decoded(part.substr(1, hostEnd - 1));
        part.remove_prefix(hostEnd + 1);
    } else {
        hostEnd = std::min(hostEnd, part.size());
        if (hostEnd > 0)
            host_ = decoded(part.substr(0, hostEnd));
        part.remove_prefix(hostEnd);
    }
    if (part.starts_with(':'))
        port_ = portNumber(part.substr(1));
}

bool NSURL::isEqual(const NSObject& other) const {
    const auto* url = dynamic_cast<const NSURL*>(&other);
    return url && url->text_ == text_;
}

std::size_t NSURL::hash() const {
    return std::hash<std::string>()(text_);
}

}  // namespace zn
