#include "platform/services/linux/OpenSSL.h"

#include <openssl/crypto.h>

namespace zn {

void keepOpenSSLUntilTheEnd() {
    OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);
}

}  // namespace zn
