#include "kerning/kerning_drag.h"

#include "kerning/kerning_canvas_mapping.h"

namespace quillery {

void KerningDrag::press(const Uuid& pair, Point at) {
  start_ = at;
  dragged_ = false;
  pause_.stop();
  edit_.begin(pair);
}

void KerningDrag::drag(Point to, Size canvas) {
  const KerningPair* pair = edit_.pair();
  if (!pair) return;
  dragged_ = true;
  const Glyph* left = manager_.firstGlyphNamed(pair->leftGlyph);
  const Glyph* right = manager_.firstGlyphNamed(pair->rightGlyph);
  if (!left || !right) return;
  // The scale at the press: one that followed the value would slip away under the pointer.
  const auto mapping = KerningCanvasMapping::make(left->advanceWidth(), right->advanceWidth(),
                                                  edit_.startValue(), canvas);
  if (mapping) edit_.set(edit_.startValue() + (to.x - start_.x) / mapping->pointsPerUnit());
}

void KerningDrag::nudge(const Uuid& pair, double by) {
  const KerningPair* edited = isNudging() ? edit_.pair() : nullptr;
  if (!edited || edited->id != pair) edit_.begin(pair);
  edited = edit_.pair();
  if (!edited) return;
  dragged_ = false;
  edit_.set(edited->value + by);
  pause_.restart([this] { edit_.end(); });
}

} // namespace quillery
