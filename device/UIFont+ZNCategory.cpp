#include "zarnic/UIFont+ZNCategory.h"

#include "platform/drawing/fonts/FontFamilies.h"
#include "zarnic/platform/drawing/UIFont.h"

namespace zn {
namespace {

/// The names of a file's fonts, which can be used from now on.
std::vector<std::optional<std::string>> registeredNames(std::string_view path) {
    const std::string file(path);
    auto names = UIFont::postScriptNamesOfFontFile(file);
    if (!names.empty())
        UIFont::registerFontFile(file);
    return names;
}

}  // namespace

std::vector<std::string> ZN_GetAllFontNames() {
    std::vector<std::string> lines;
    for (const FontFamily& family : installedFamilies()) {
        lines.push_back("Family name: " + family.name);
        for (const std::string& font : family.fonts)
            lines.push_back("  Font name: " + font);
    }
    return lines;
}

std::optional<std::string> ZN_GetCustomFontNameWithPath(std::string_view path) {
    const auto names = registeredNames(path);
    return names.empty() ? std::nullopt : names.front();
}

std::vector<std::string> ZN_GetCustomFontNameArrayWithPath(std::string_view path) {
    std::vector<std::string> result;
    for (const auto& name : registeredNames(path)) {
        if (name)
            result.push_back(*name);
    }
    return result;
}

}  // namespace zn
