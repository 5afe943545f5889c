#pragma once

#include <pango/pangocairo.h>

#include <array>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_map>

#include "zarnic/platform/drawing/UIFont.h"

namespace zn {

struct GObjectRelease {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using GObjectRef = std::unique_ptr<T, GObjectRelease>;

/// A font as Pango chose it for a run, ready to draw at any scale from any thread.
class GlyphFont;

enum class ParagraphDirection { LeftToRight, RightToLeft };

/// The one font map of the process. Pango's objects are no thread's own, so whoever holds one
/// holds the lock.
class FontEngine {
public:
    /// Throws `NSInternalInconsistencyException` when there are no fonts: Pango would end the
    /// process.
    static FontEngine& shared();

    std::unique_lock<std::mutex> lock() { return std::unique_lock(mutex_); }

    /// The following want the lock.
    GObjectRef<PangoLayout> makeLayout(std::string_view text, const UIFont::Description& font,
                                       ParagraphDirection direction) const;
    GObjectRef<PangoFont> load(const UIFont::Description& font) const;
    std::shared_ptr<const GlyphFont> glyphFont(PangoFont* font);
    void fontsChanged();

private:
    FontEngine();
    const GObjectRef<PangoContext>& contextFor(std::string_view text,
                                               ParagraphDirection direction) const;

    std::mutex mutex_;
    GObjectRef<PangoFontMap> map_;
    /// For texts in ASCII: in a Chinese context Pango would open a Chinese font to measure bare
    /// digits, and choose the fonts of each size once more for a font's own metrics.
    GObjectRef<PangoContext> latinContext_;
    /// One for each direction: changing a context's direction undoes the layouts made with it.
    std::array<GObjectRef<PangoContext>, 2> contexts_;
    std::unordered_map<cairo_scaled_font_t*, std::weak_ptr<const GlyphFont>> glyphFonts_;
};

/// The OpenType weight (100 to 900) of a platform weight, and back.
int openTypeWeight(double weight);
double platformWeight(double openTypeWeight);

}  // namespace zn
