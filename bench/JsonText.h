#pragma once

#include <string>

namespace bench {

/// Ten megabytes of records as a server sends them: short and long texts, some not ASCII or with
/// escapes, numbers of both kinds, lists and objects within each other, no white space between.
const std::string& largeJson();

}  // namespace bench
