#include "platform/drawing/text/TextShaping.h"

#include <hb.h>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace zn {
namespace {

/// Letters, digits and signs of Latin, Greek and Cyrillic, whose shapes do not hang together.
bool isSimple(std::string_view text, std::size_t position) {
    const auto lead = static_cast<unsigned char>(text[position]);
    const auto second =
        position + 1 < text.size() ? static_cast<unsigned char>(text[position + 1]) : 0U;
    return lead < 0xD6 || lead == 0xE2 || (lead == 0xE1 && second >= 0xB8 && second <= 0xBB);
}

std::size_t characterLength(unsigned char lead) {
    if (lead < 0xC0)
        return 1;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// Where the letters of one script end, shaping begins anew; signs go with the letters before them.
enum class Script { Common, Latin, Greek, Cyrillic, Other };

Script scriptAt(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t offset) {
        return position + offset < text.size() ? static_cast<unsigned char>(text[position + offset])
                                               : 0U;
    };
    const unsigned lead = byte(0), pair = lead << 8 | byte(1);
    if (lead < 0x80)
        return std::isalpha(static_cast<int>(lead)) ? Script::Latin : Script::Common;
    if (pair <= 0xC2BF)
        return Script::Common;
    if (pair < 0xCDB0)
        return Script::Latin;
    if (pair < 0xD080)
        return Script::Greek;
    if (pair < 0xD4B0)
        return Script::Cyrillic;
    // Dashes, quotation marks and the like: U+2010 to U+2027.
    const bool sign = pair == 0xE280 && byte(2) >= 0x90 && byte(2) <= 0xA7;
    return sign ? Script::Common : Script::Other;
}

std::size_t endOfSimple(std::string_view text, std::size_t position) {
    while (position < text.size() && isSimple(text, position))
        position += characterLength(static_cast<unsigned char>(text[position]));
    return std::min(position, text.size());
}

struct ReleaseAttributes {
    void operator()(PangoAttrList* attributes) const { pango_attr_list_unref(attributes); }
};
using Attributes = std::unique_ptr<PangoAttrList, ReleaseAttributes>;

/// Inter's contextual alternates make an arrow of "->" and a sign of the x in "3x4": a text says
/// what it says. Scripts that join their letters keep theirs.
void keepTextLiteral(PangoAttrList* attributes, std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t end = endOfSimple(text, position);
        if (text.substr(position, end - position).find_first_not_of(' ') !=
            std::string_view::npos) {
            PangoAttribute* literal = pango_attr_font_features_new("calt=0");
            literal->start_index = static_cast<guint>(position);
            literal->end_index = static_cast<guint>(end);
            pango_attr_list_insert(attributes, literal);
        }
        position = end;
        while (position < text.size() && !isSimple(text, position))
            position += characterLength(static_cast<unsigned char>(text[position]));
    }
}

/// Words that are broken get no hyphen.
Attributes attributesOf(std::string_view text, const UIFont::Description& font) {
    Attributes attributes(pango_attr_list_new());
    pango_attr_list_insert(attributes.get(), pango_attr_insert_hyphens_new(FALSE));
    if (font.family.starts_with("Inter"))
        keepTextLiteral(attributes.get(), text);
    // Chosen by name, a font keeps its own region's forms whatever the user's language.
    if (font.family.find(" CJK ") != std::string::npos)
        pango_attr_list_insert(attributes.get(), pango_attr_font_features_new("locl=0"));
    return attributes;
}

constexpr gunichar leftToRightMark = 0x200E;
constexpr gunichar rightToLeftMark = 0x200F;
constexpr gunichar arabicLetterMark = 0x061C;

}  // namespace

bool linesStandAlone(std::string_view text) {
    Script only = Script::Common;
    for (std::size_t at = 0; at < text.size();) {
        const Script script = scriptAt(text, at);
        const bool another = script != Script::Common && only != Script::Common && script != only;
        if (script == Script::Other || another)
            return false;
        only = std::max(only, script);
        at += characterLength(static_cast<unsigned char>(text[at]));
    }
    return true;
}

ParagraphDirection directionOf(std::string_view paragraph) {
    hb_unicode_funcs_t* unicode = hb_unicode_funcs_get_default();
    const char* end = paragraph.data() + paragraph.size();
    for (const char* at = paragraph.data(); at < end; at = g_utf8_next_char(at)) {
        const gunichar character = g_utf8_get_char(at);
        if (character == rightToLeftMark || character == arabicLetterMark)
            return ParagraphDirection::RightToLeft;
        if (character == leftToRightMark)
            return ParagraphDirection::LeftToRight;
        if (g_unichar_isalpha(character))
            return hb_script_get_horizontal_direction(hb_unicode_script(unicode, character)) ==
                           HB_DIRECTION_RTL
                       ? ParagraphDirection::RightToLeft
                       : ParagraphDirection::LeftToRight;
    }
    return ParagraphDirection::LeftToRight;
}

std::shared_ptr<PangoLayout> shapedText(FontEngine& engine, std::string_view text,
                                        const TextStyle& style, ParagraphDirection direction,
                                        double width) {
    const auto& font = style.font->fontDescription();
    std::shared_ptr<PangoLayout> layout = engine.makeLayout(text, font, direction);
    pango_layout_set_attributes(layout.get(), attributesOf(text, font).get());
    if (width < 0)
        return layout;
    pango_layout_set_width(layout.get(), static_cast<int>(std::lround(width * PANGO_SCALE)));
    pango_layout_set_wrap(layout.get(), style.lineBreak == NSLineBreakMode::CharWrapping
                                            ? PANGO_WRAP_CHAR
                                            : PANGO_WRAP_WORD_CHAR);
    pango_layout_set_justify(layout.get(), style.alignment == NSTextAlignment::Justified);
    return layout;
}

double likelyLength(double width, double pointSize) {
    // The narrowest letters take a quarter of an em and one byte.
    return std::clamp(4 * width / pointSize + 16, 64.0, 1e6);
}

std::vector<CursorStep> cursorSteps(PangoLayout* layout, PangoLayoutLine* line) {
    const char* text = pango_layout_get_text(layout);
    int attributeCount = 0;
    const PangoLogAttr* attributes = pango_layout_get_log_attrs_readonly(layout, &attributeCount);
    std::vector<CursorStep> steps;
    std::vector<int> widths;
    double x = 0;
    for (GSList* node = line->runs; node; node = node->next) {
        auto* run = static_cast<PangoGlyphItem*>(node->data);
        const auto count = static_cast<std::size_t>(run->item->num_chars);
        widths.assign(count, 0);
        pango_glyph_item_get_logical_widths(run, text, widths.data());
        const bool rightToLeft = run->item->analysis.level % 2 != 0;
        double total = 0;
        for (const int width : widths)
            total += double(width) / PANGO_SCALE;

        const char* character = text + run->item->offset;
        const auto firstIndex = g_utf8_pointer_to_offset(text, character);
        double passed = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const double width = double(widths[i]) / PANGO_SCALE;
            const char* next = g_utf8_next_char(character);
            const auto start = static_cast<std::size_t>(character - text);
            const auto end = static_cast<std::size_t>(next - text);
            const double left = rightToLeft ? x + total - passed - width : x + passed;
            if (i == 0 || attributes[firstIndex + static_cast<glong>(i)].is_cursor_position) {
                steps.push_back({start, end, left, width, rightToLeft});
            } else {
                steps.back().end = end;
                steps.back().width += width;
                steps.back().x = std::min(steps.back().x, left);
            }
            passed += width;
            character = next;
        }
        x += total;
    }
    std::ranges::sort(steps, {}, &CursorStep::start);
    return steps;
}

}  // namespace zn
