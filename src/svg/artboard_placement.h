#pragma once

#include "model/flat_drawing.h"
#include "model/font_project.h"
#include "model/glyph.h"

namespace quillery {

/// Where a new drawing is put in the em.
enum class DrawingPlacement {
  edges,    ///< its ink stands on the baseline between two equal bearings, 100 units span the em
  artboard, ///< its artboard is the em
};

/// Places a glyph that was just read, so that the artboard's height is the em, its foot the
/// descender and its left and right edges origin and advance. A baseline in the drawing takes the
/// foot's place: it comes to lie on the font's. Metrics change through their setters.
void placeByArtboard(Glyph& glyph, const Artboard& artboard, const FontInfo& font);

} // namespace quillery
