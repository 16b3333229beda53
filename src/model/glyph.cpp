#include "model/glyph.h"

#include <cmath>

namespace quillery {
namespace {

// Differences up to this, in font units or as a ratio, are rounding and not a change.
constexpr double kTolerance = 0.001;

} // namespace

const char* name(GlyphMetric metric) {
  switch (metric) {
  case GlyphMetric::leftSideBearing:
    return "leftSideBearing";
  case GlyphMetric::rightSideBearing:
    return "rightSideBearing";
  case GlyphMetric::advanceWidth:
    return "advanceWidth";
  case GlyphMetric::verticalOffset:
    return "verticalOffset";
  case GlyphMetric::scale:
    break;
  }
  return "scale";
}

double GlyphPlacement::metric(GlyphMetric metric) const {
  switch (metric) {
  case GlyphMetric::leftSideBearing:
    return leftSideBearing;
  case GlyphMetric::rightSideBearing:
    return rightSideBearing;
  case GlyphMetric::advanceWidth:
    return advanceWidth;
  case GlyphMetric::verticalOffset:
    return verticalOffset;
  case GlyphMetric::scale:
    break;
  }
  return scale;
}

void Glyph::setMetric(GlyphMetric metric, double value) {
  switch (metric) {
  case GlyphMetric::leftSideBearing:
    return setLeftSideBearing(value);
  case GlyphMetric::rightSideBearing:
    return setRightSideBearing(value);
  case GlyphMetric::advanceWidth:
    return setAdvanceWidth(value);
  case GlyphMetric::verticalOffset:
    return setVerticalOffset(value);
  case GlyphMetric::scale:
    return setScale(value);
  }
}

void Glyph::placeOutline(Outline outline, Rect boundingBox) {
  record_.fontPath = std::move(outline);
  record_.boundingBox = boundingBox;
}

void Glyph::setLeftSideBearing(double value) {
  const double change = value - record_.leftSideBearing;
  record_.leftSideBearing = value;
  if (change != 0) offsetOutline(change, 0);
}

void Glyph::setRightSideBearing(double value) {
  record_.rightSideBearing = value;
  syncAdvanceWidth();
}

void Glyph::setAdvanceWidth(double value) {
  record_.advanceWidth = value;
  setRightSideBearing(value - record_.boundingBox.maxX());
}

void Glyph::setVerticalOffset(double value) {
  const double change = value - record_.verticalOffset;
  record_.verticalOffset = value;
  if (change != 0) offsetOutline(0, change);
}

void Glyph::setScale(double value) {
  const double ratio = value / record_.scale;
  record_.scale = value;
  if (std::isfinite(ratio) && std::fabs(ratio - 1) > kTolerance) rescaleOutline(ratio);
}

void Glyph::offsetOutline(double dx, double dy) {
  record_.fontPath.shift(dx, dy);
  record_.boundingBox.x += dx;
  record_.boundingBox.y += dy;
  if (dx != 0) setRightSideBearing(record_.advanceWidth - record_.boundingBox.maxX());
}

void Glyph::rescaleOutline(double ratio) {
  Rect& box = record_.boundingBox;
  const double left = box.minX();
  record_.fontPath.resize(left, ratio);
  box = {left, box.y * ratio, box.width * ratio, box.height * ratio};
  record_.advanceWidth = box.maxX() + record_.rightSideBearing;
  setRightSideBearing(record_.advanceWidth - box.maxX());
}

void Glyph::syncAdvanceWidth() {
  const double edge = record_.boundingBox.maxX();
  const double gap = record_.rightSideBearing - (record_.advanceWidth - edge);
  if (!(std::fabs(gap) > kTolerance)) return;
  record_.advanceWidth = edge + record_.rightSideBearing;
  record_.rightSideBearing = record_.advanceWidth - edge;
}

} // namespace quillery
