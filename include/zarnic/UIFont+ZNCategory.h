#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Export.h"

namespace zn {

/// The installed fonts, a line each: `Family name: ...` for a family, then `  Font name: ...` with
/// the PostScript name for each of its fonts.
ZN_EXPORT std::vector<std::string> ZN_GetAllFontNames();

/// Makes the first font of a file usable by name in this process; again is harmless. Its PostScript
/// name; absent for a file that is no font, and for a font without a name.
ZN_EXPORT std::optional<std::string> ZN_GetCustomFontNameWithPath(std::string_view path);

/// Makes every font of a file usable by name. Their PostScript names in the order of the file,
/// without those that have none; empty for a file that is no font.
ZN_EXPORT std::vector<std::string> ZN_GetCustomFontNameArrayWithPath(std::string_view path);

}  // namespace zn
