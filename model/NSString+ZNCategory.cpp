#include "zarnic/NSString+ZNCategory.h"

#include <algorithm>

#include "model/Digest.h"
#include "platform/foundation/text/RegularExpression.h"
#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

std::string_view upToZero(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(
        text, [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

std::optional<std::string> unlessEmpty(const Digest& digest, std::span<const std::byte> data) {
    return data.empty() ? std::nullopt : digest.hexadecimal(data);
}

}  // namespace

bool zn_IsMatchRegEx(std::string_view text, std::string_view expression) {
    return matchesWholly(text, expression);
}

std::optional<std::string> zn_EncryptSHA256(std::string_view text) {
    if (!zn_NotNull(text) || !isAscii(text))
        return std::nullopt;
    return ZN_EncryptSHA256(bytesOf(upToZero(text)));
}

std::optional<std::string> ZN_EncryptSHA256(std::span<const std::byte> data) {
    return unlessEmpty(Digest::sha256(), data);
}

std::optional<std::string> zn_EncryptSHA1(std::string_view text) {
    return ZN_EncryptSHA1(bytesOf(text.substr(0, utf16Length(text))));
}

std::optional<std::string> ZN_EncryptSHA1(std::span<const std::byte> data) {
    return unlessEmpty(Digest::sha1(), data);
}

std::optional<std::string> zn_EncryptMD5(std::string_view text) {
    if (!zn_NotNull(text))
        return std::nullopt;
    return Digest::md5().hexadecimal(bytesOf(upToZero(text)));
}

}  // namespace zn
