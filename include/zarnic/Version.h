#pragma once

#include "zarnic/platform/foundation/Export.h"

extern "C" {

/// Version of the library that the program runs with, as major.minor.
ZN_EXPORT extern const double ZarnicVersionNumber;
/// The same with the patch level, as in "1.2.3".
ZN_EXPORT extern const char ZarnicVersionString[];
}
