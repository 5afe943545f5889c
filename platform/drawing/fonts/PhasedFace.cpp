#include "platform/drawing/fonts/PhasedFace.h"

#include "platform/drawing/fonts/GlyphFont.h"

namespace zn {
namespace {

const cairo_user_data_key_t innerFaceKey{};
const cairo_user_data_key_t innerFontKey{};

void destroyFace(void* face) {
    cairo_font_face_destroy(static_cast<cairo_font_face_t*>(face));
}

void destroyFont(void* font) {
    cairo_scaled_font_destroy(static_cast<cairo_scaled_font_t*>(font));
}

cairo_scaled_font_t* makeInner(cairo_scaled_font_t* font) {
    auto* face = static_cast<cairo_font_face_t*>(
        cairo_font_face_get_user_data(cairo_scaled_font_get_font_face(font), &innerFaceKey));
    cairo_matrix_t toPixels;
    cairo_scaled_font_get_scale_matrix(font, &toPixels);
    cairo_matrix_t identity;
    cairo_matrix_init_identity(&identity);
    return cairo_scaled_font_create(face, &toPixels, &identity, textFontOptions());
}

/// The inner font in pixels, made with a font's first glyph: making it together with the font
/// would go through Cairo's placeholders, which confuse threads that want the same font.
cairo_scaled_font_t* innerOf(cairo_scaled_font_t* font) {
    if (void* known = cairo_scaled_font_get_user_data(font, &innerFontKey))
        return static_cast<cairo_scaled_font_t*>(known);
    cairo_scaled_font_t* inner = makeInner(font);
    cairo_scaled_font_set_user_data(font, &innerFontKey, inner, destroyFont);
    return inner;
}

cairo_status_t render(cairo_scaled_font_t* font, unsigned long code, cairo_t* context,
                      cairo_text_extents_t*) {
    const cairo_glyph_t glyph{code / glyphPhases,
                              static_cast<double>(code % glyphPhases) / double{glyphPhases}, 0};
    cairo_identity_matrix(context);
    cairo_set_scaled_font(context, innerOf(font));
    cairo_set_antialias(context, CAIRO_ANTIALIAS_BEST);
    cairo_glyph_path(context, &glyph, 1);
    cairo_fill(context);
    return cairo_status(context);
}

}  // namespace

cairo_font_face_t* makePhasedFace(cairo_font_face_t* face) {
    cairo_font_face_t* phased = cairo_user_font_face_create();
    cairo_user_font_face_set_render_glyph_func(phased, render);
    cairo_font_face_set_user_data(phased, &innerFaceKey, cairo_font_face_reference(face),
                                  destroyFace);
    return phased;
}

}  // namespace zn
