#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// The languages that the user wants, best first, as tags (`zh-Hans-CN`, `en-GB`), from the
/// environment by its rules: `LANGUAGE` (a list) unless the locale is the plain C one, else the
/// first set of `LC_ALL`, `LC_MESSAGES` and `LANG`. `en` when nothing is said. Read afresh each
/// time.
ZN_EXPORT std::vector<std::string> preferredLanguages();

/// A POSIX locale name as a language tag: `zh_CN.UTF-8` is `zh-Hans-CN`, `sr_RS@latin`
/// `sr-Latn-RS`, `C` and what is no locale nothing.
ZN_EXPORT std::string languageTag(std::string_view locale);

/// Which of the localizations serve a user of these languages, best first: the first language that
/// is among them, itself or by one of its parents (`zh-Hant-HK`, `zh-Hant`, `zh`), decides; with
/// none, the development region, then `en`, then the first of the list; `en` for an empty list.
ZN_EXPORT std::vector<std::string> preferredLocalizations(
    const std::vector<std::string>& localizations, const std::vector<std::string>& languages,
    std::string_view developmentRegion);

}  // namespace zn
