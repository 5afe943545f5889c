#pragma once

#include <compare>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Class.h"

namespace zn {

/// The platform's numbers.
namespace UIFontWeight {
inline constexpr double UltraLight = -0.8, Thin = -0.6, Light = -0.4, Regular = 0, Medium = 0.23,
                        Semibold = 0.3, Bold = 0.4, Heavy = 0.56, Black = 0.62;
}  // namespace UIFontWeight

/// An immutable font of one size in points. Fonts of the same description are one object while
/// anybody holds them. Safe from any thread. A size that is no positive number becomes 12, one
/// beyond 10,000 becomes 10,000. Metrics are in points and do not depend on the screen; they throw
/// `NSInternalInconsistencyException` on a machine without fonts (see `missingFontsMessage`).
class ZN_EXPORT UIFont final : public NSObject {
    ZN_OBJECT(UIFont, NSObject)
public:
    struct Description {
        /// One that is not installed is replaced by the nearest.
        std::string family;
        double weight = 0;
        bool italic = false;
        double size = 17;
        friend auto operator<=>(const Description&, const Description&) = default;
    };
    /// The static members below share fonts; this makes one of its own.
    explicit UIFont(Description description);
    ~UIFont() override;

    /// Inter where it is installed, else Roboto, Noto Sans, DejaVu Sans or any other sans-serif.
    /// Characters that it lacks come from the installed fonts that have them.
    static Ref<UIFont> systemFontOfSize(double size);
    static Ref<UIFont> systemFontOfSize(double size, double weight);
    static Ref<UIFont> boldSystemFontOfSize(double size);
    static Ref<UIFont> italicSystemFontOfSize(double size);
    /// By family or PostScript name; null when no installed font has it.
    static Ref<UIFont> fontWithName(std::string_view name, double size);
    Ref<UIFont> fontWithSize(double size) const;

    /// The installed families, sorted.
    static std::vector<std::string> familyNames();
    /// The PostScript names of a family's fonts, sorted; a font without one is named by its family
    /// and style, joined by a hyphen, without blanks.
    static std::vector<std::string> fontNamesForFamilyName(std::string_view family);
    /// Makes the fonts of a file available to this process; again is harmless. False when the file
    /// cannot be read as fonts.
    static bool registerFontFile(const std::string& path);
    /// The PostScript names of the fonts of a file in its order, absent for a font without one;
    /// none when the file cannot be read as fonts. Nothing is registered.
    static std::vector<std::optional<std::string>> postScriptNamesOfFontFile(
        const std::string& path);

    const Description& fontDescription() const { return description_; }
    const std::string& familyName() const { return description_.family; }
    /// The PostScript name of the font that is really drawn.
    const std::string& fontName() const;
    double pointSize() const { return description_.size; }
    double ascender() const;
    /// Negative.
    double descender() const;
    /// The ascender less the descender: what every line of text takes.
    double lineHeight() const;
    double leading() const;
    double capHeight() const;
    double xHeight() const;

    bool isEqual(const NSObject& other) const override;
    std::size_t hash() const override { return hash_; }

private:
    struct Metrics;
    const Metrics& metrics() const;

    Description description_;
    std::size_t hash_;
    mutable std::once_flag metricsOnce_;
    mutable std::unique_ptr<const Metrics> metrics_;
};

/// What to tell the user of a machine on which no font is installed; absent when there is one.
/// Hosts ask at start: text cannot be measured without.
ZN_EXPORT std::optional<std::string> missingFontsMessage();

}  // namespace zn
