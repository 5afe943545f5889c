#include "zarnic/platform/drawing/UIFont.h"

#include <hb-ot.h>
#include <pango/pangofc-font.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>

#include "platform/drawing/fonts/FontEngine.h"
#include "platform/drawing/fonts/FontList.h"

namespace zn {

struct UIFont::Metrics {
    std::string name;
    double ascender = 0;
    double descender = 0;
    double leading = 0;
    double capHeight = 0;
    double xHeight = 0;
};

namespace {

constexpr double defaultSize = 12;
constexpr double largestSize = 10'000;

/// Fonts by description, so that equal ones are one object. Those nobody holds go when there are
/// many.
class FontTable {
public:
    static FontTable& shared() {
        static auto& table = *new FontTable;
        return table;
    }

    Ref<UIFont> font(UIFont::Description description) {
        const std::lock_guard guard(mutex_);
        if (auto found = fonts_.find(description); found != fonts_.end())
            return found->second;
        if (fonts_.size() >= manyFonts)
            std::erase_if(fonts_, [](const auto& entry) { return entry.second.use_count() == 1; });
        auto made = make<UIFont>(description);
        fonts_.emplace(std::move(description), made);
        return made;
    }

private:
    static constexpr std::size_t manyFonts = 256;
    std::mutex mutex_;
    std::map<UIFont::Description, Ref<UIFont>> fonts_;
};

UIFont::Description normalized(UIFont::Description description) {
    if (!(description.size > 0) || std::isinf(description.size))
        description.size = defaultSize;
    description.size = std::min(description.size, largestSize);
    if (std::isnan(description.weight))
        description.weight = UIFontWeight::Regular;
    return description;
}

Ref<UIFont> sharedFont(UIFont::Description description) {
    return FontTable::shared().font(normalized(std::move(description)));
}

std::size_t hashOf(const UIFont::Description& description) {
    std::size_t hash = std::hash<std::string>{}(description.family);
    for (const std::size_t part :
         {std::hash<double>{}(description.weight), std::hash<double>{}(description.size),
          std::size_t{description.italic}})
        hash = hash * 31 + part;
    return hash;
}

double openTypeMetric(hb_font_t* font, hb_ot_metrics_tag_t tag) {
    hb_position_t value = 0;
    hb_ot_metrics_get_position_with_fallback(font, tag, &value);
    return double(value) / PANGO_SCALE;
}

}  // namespace

UIFont::UIFont(Description description)
    : description_(normalized(std::move(description))), hash_(hashOf(description_)) {}

UIFont::~UIFont() = default;

Ref<UIFont> UIFont::systemFontOfSize(double size) {
    return systemFontOfSize(size, UIFontWeight::Regular);
}

Ref<UIFont> UIFont::systemFontOfSize(double size, double weight) {
    return sharedFont({systemFontFamily(), weight, false, size});
}

Ref<UIFont> UIFont::boldSystemFontOfSize(double size) {
    return systemFontOfSize(size, UIFontWeight::Bold);
}

Ref<UIFont> UIFont::italicSystemFontOfSize(double size) {
    return sharedFont({systemFontFamily(), UIFontWeight::Regular, true, size});
}

Ref<UIFont> UIFont::fontWithName(std::string_view name, double size) {
    auto description = installedFontNamed(name);
    if (!description)
        return nullptr;
    description->size = size;
    return sharedFont(std::move(*description));
}

Ref<UIFont> UIFont::fontWithSize(double size) const {
    Description description = description_;
    description.size = size;
    return sharedFont(std::move(description));
}

const UIFont::Metrics& UIFont::metrics() const {
    std::call_once(metricsOnce_, [this] {
        auto& engine = FontEngine::shared();
        const auto lock = engine.lock();
        const auto font = engine.load(description_);
        hb_font_t* shape = pango_font_get_hb_font(font.get());
        hb_font_extents_t extents{};
        hb_font_get_h_extents(shape, &extents);
        metrics_ = std::make_unique<const Metrics>(Metrics{
            postScriptName(pango_fc_font_get_pattern(PANGO_FC_FONT(font.get()))),
            double(extents.ascender) / PANGO_SCALE,
            double(extents.descender) / PANGO_SCALE,
            double(extents.line_gap) / PANGO_SCALE,
            openTypeMetric(shape, HB_OT_METRICS_TAG_CAP_HEIGHT),
            openTypeMetric(shape, HB_OT_METRICS_TAG_X_HEIGHT),
        });
    });
    return *metrics_;
}

const std::string& UIFont::fontName() const {
    return metrics().name;
}

double UIFont::ascender() const {
    return metrics().ascender;
}

double UIFont::descender() const {
    return metrics().descender;
}

double UIFont::lineHeight() const {
    return metrics().ascender - metrics().descender;
}

double UIFont::leading() const {
    return metrics().leading;
}

double UIFont::capHeight() const {
    return metrics().capHeight;
}

double UIFont::xHeight() const {
    return metrics().xHeight;
}

bool UIFont::isEqual(const NSObject& other) const {
    const auto* font = dynamic_cast<const UIFont*>(&other);
    return font && font->description_ == description_;
}

}  // namespace zn
