#include "model/Digest.h"

#include <openssl/evp.h>

#include <array>
#include <memory>

#include "platform/services/linux/OpenSSL.h"

namespace zn {
namespace {

struct FreeContext {
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

/// One for each thread: making one costs as much as a short text.
EVP_MD_CTX* context() {
    thread_local const std::unique_ptr<EVP_MD_CTX, FreeContext> own(EVP_MD_CTX_new());
    return own.get();
}

/// The two digits of each byte.
constexpr auto digitPairs = [] {
    constexpr char digits[] = "0123456789abcdef";
    std::array<std::array<char, 2>, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte)
        pairs[byte] = {digits[byte >> 4], digits[byte & 15]};
    return pairs;
}();

EVP_MD* fetch(const char* name) {
    keepOpenSSLUntilTheEnd();
    return EVP_MD_fetch(nullptr, name, nullptr);
}

}  // namespace

Digest::Digest(const char* name) : algorithm_(fetch(name)) {}

const Digest& Digest::md5() {
    static const Digest digest("MD5");
    return digest;
}

const Digest& Digest::sha1() {
    static const Digest digest("SHA1");
    return digest;
}

const Digest& Digest::sha256() {
    static const Digest digest("SHA256");
    return digest;
}

std::optional<std::string> Digest::hexadecimal(std::span<const std::byte> data) const {
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes;
    unsigned size = 0;
    EVP_MD_CTX* const work = context();
    if (algorithm_ == nullptr || work == nullptr ||
        EVP_DigestInit_ex2(work, algorithm_, nullptr) != 1 ||
        EVP_DigestUpdate(work, data.data(), data.size()) != 1 ||
        EVP_DigestFinal_ex(work, bytes.data(), &size) != 1)
        return std::nullopt;
    std::string text(2 * static_cast<std::size_t>(size), '\0');
    for (std::size_t i = 0; i < size; ++i) {
        text[2 * i] = digitPairs[bytes[i]][0];
        text[2 * i + 1] = digitPairs[bytes[i]][1];
    }
    return text;
}

}  // namespace zn
