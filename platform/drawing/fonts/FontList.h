#pragma once

#include <fontconfig/fontconfig.h>

#include <optional>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/UIFont.h"

namespace zn {

/// The family of the system font on this machine, found once.
const std::string& systemFontFamily();

/// The font of this family or PostScript name, of no size yet; absent when none is installed.
std::optional<UIFont::Description> installedFontNamed(std::string_view name);

/// The PostScript name, else family and style joined by a hyphen, without blanks.
std::string postScriptName(FcPattern* font);

}  // namespace zn
