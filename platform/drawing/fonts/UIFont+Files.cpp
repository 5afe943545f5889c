#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>

#include "platform/drawing/fonts/FontEngine.h"
#include "platform/drawing/text/TextLayoutCache.h"
#include "zarnic/platform/drawing/UIFont.h"

namespace zn {
namespace {

class FontLibrary {
public:
    FontLibrary() { FT_Init_FreeType(&library_); }
    ~FontLibrary() { FT_Done_FreeType(library_); }
    FontLibrary(const FontLibrary&) = delete;
    FontLibrary& operator=(const FontLibrary&) = delete;

    struct CloseFace {
        void operator()(FT_Face face) const { FT_Done_Face(face); }
    };
    using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, CloseFace>;

    /// Null when there is no such font; index -1 only counts them.
    Face open(const std::string& path, FT_Long index) const {
        FT_Face face = nullptr;
        return Face(FT_New_Face(library_, path.c_str(), index, &face) == 0 ? face : nullptr);
    }

private:
    FT_Library library_ = nullptr;
};

}  // namespace

std::vector<std::optional<std::string>> UIFont::postScriptNamesOfFontFile(const std::string& path) {
    const FontLibrary library;
    const auto file = library.open(path, -1);
    std::vector<std::optional<std::string>> names;
    for (FT_Long index = 0; file && index < file->num_faces; ++index) {
        const auto face = library.open(path, index);
        const char* name = face ? FT_Get_Postscript_Name(face.get()) : nullptr;
        names.push_back(name ? std::optional<std::string>(name) : std::nullopt);
    }
    return names;
}

bool UIFont::registerFontFile(const std::string& path) {
    if (postScriptNamesOfFontFile(path).empty() ||
        !FcConfigAppFontAddFile(nullptr, reinterpret_cast<const FcChar8*>(path.c_str())))
        return false;
    auto& engine = FontEngine::shared();
    {
        const auto lock = engine.lock();
        engine.fontsChanged();
    }
    TextLayoutCache::shared().clear();
    return true;
}

}  // namespace zn
