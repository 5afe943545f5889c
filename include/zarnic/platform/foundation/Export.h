#pragma once

/// Marks what the shared libraries export; everything else is hidden.
#define ZN_EXPORT __attribute__((visibility("default")))
