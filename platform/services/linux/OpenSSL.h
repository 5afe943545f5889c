#pragma once

namespace zn {

/// To be called before OpenSSL is first used. By itself it cleans up when `main` has returned, and
/// threads that are still at work in it crash.
void keepOpenSSLUntilTheEnd();

}  // namespace zn
