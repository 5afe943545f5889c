#pragma once

#include <string>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// One line for each entry in the dictionary's order, each ending with a comma; what any dictionary
/// in a log line looks like, whatever the locale.
ZN_EXPORT std::string descriptionWithLocale(const Dictionary& dictionary, const Value& locale = {});

}  // namespace zn
