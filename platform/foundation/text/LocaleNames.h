#pragma once

#include <string>

namespace zn {

/// Whether two names of localizations mean the same, however they are spelled: `zh_CN` and
/// `zh-Hans`, `English` and `en`.
bool sameLocalization(const std::string& left, const std::string& right);

}  // namespace zn
