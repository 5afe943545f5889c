#pragma once

/// A small `thread_local` variable that busy code reads: found without a call, at the price of room
/// among those that the program itself starts with. That room is scarce when the library is loaded
/// later, so large variables are not for it.
#define ZN_FAST_THREAD_LOCAL [[gnu::tls_model("initial-exec")]] thread_local
