#pragma once

#include <openssl/types.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace zn {

/// A digest of libcrypto. From any thread.
class Digest {
public:
    static const Digest& md5();
    static const Digest& sha1();
    static const Digest& sha256();

    /// Two lower-case digits for each byte; nothing when the machine's policy forbids the digest.
    std::optional<std::string> hexadecimal(std::span<const std::byte> data) const;

private:
    explicit Digest(const char* name);

    /// Kept until the process ends; looking it up each time costs as much as a short text.
    EVP_MD* const algorithm_;
};

}  // namespace zn
