#pragma once

#include <cairo.h>

namespace zn {

/// How many places within a pixel a glyph can be drawn at.
inline constexpr unsigned long glyphPhases = 4;

/// A face whose glyph `index * glyphPhases + phase` is the given face's glyph `index`, moved right
/// by `phase` quarters of a device pixel. Cairo's image surfaces place glyphs on whole pixels
/// (before 1.17.4, and after it at the surface's choice), which spaces small text unevenly; this
/// way its glyph cache holds each place's picture instead.
cairo_font_face_t* makePhasedFace(cairo_font_face_t* face);

}  // namespace zn
