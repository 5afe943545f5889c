#include "platform/services/linux/VendorIdentifier.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>

#include <array>

namespace zn {
namespace {

bool isMachineId(std::string_view text) {
    return text.size() == 32 && text.find_first_not_of("0123456789abcdef") == text.npos &&
           text.find_first_not_of('0') != text.npos;
}

}  // namespace

std::optional<std::string> vendorIdentifier(std::string_view machineId,
                                            std::string_view applicationIdentifier) {
    if (!isMachineId(machineId))
        return std::nullopt;
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    if (HMAC(EVP_sha256(), machineId.data(), static_cast<int>(machineId.size()),
             reinterpret_cast<const unsigned char*>(applicationIdentifier.data()),
             applicationIdentifier.size(), digest.data(), nullptr) == nullptr)
        return std::nullopt;
    digest[6] = static_cast<unsigned char>((digest[6] & 0x0F) | 0x40);
    digest[8] = static_cast<unsigned char>((digest[8] & 0x3F) | 0x80);
    std::string text;
    for (std::size_t i = 0; i < 16; ++i) {
        constexpr std::string_view digits = "0123456789ABCDEF";
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += digits[digest[i] >> 4];
        text += digits[digest[i] & 0x0F];
    }
    return text;
}

}  // namespace zn
