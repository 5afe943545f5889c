#pragma once

#include <set>
#include <string>
#include <vector>

namespace zn {

/// A family with the PostScript names of its fonts, as `UIFont` gives them one by one.
struct FontFamily {
    std::string name;
    std::set<std::string> fonts;
};
/// All of them, sorted; fontconfig is asked once.
std::vector<FontFamily> installedFamilies();

}  // namespace zn
