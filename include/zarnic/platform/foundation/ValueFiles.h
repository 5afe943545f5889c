#pragma once

#include <string_view>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Writes data as its bytes, a text as UTF-8 without a mark, an array or a dictionary as an XML
/// property list. Atomically means that after a failure, a crash or on a full disk the file is the
/// old one or the new one, whole. False when it cannot be written or is no property list, which
/// leaves the file as it was, and for an absent value. Throws `NSInvalidArgumentException` for the
/// null object, a number or another object: they have no form in a file.
ZN_EXPORT bool writeToFile(const Value& value, std::string_view path, bool atomically);

/// The bytes of a regular file (or a link to one) as data; absent when it cannot be read.
ZN_EXPORT Value dataWithContentsOfFile(std::string_view path);

}  // namespace zn
