#pragma once

#include "base/geometry.h"
#include "base/shared_text.h"
#include "base/utf8.h"
#include "base/uuid.h"
#include "model/outline.h"

#include <array>
#include <optional>
#include <string_view>

namespace quillery {

/// The values of a glyph that say where its outline lies.
enum class GlyphMetric { leftSideBearing, rightSideBearing, advanceWidth, verticalOffset, scale };

inline constexpr std::array<GlyphMetric, 5> kEveryGlyphMetric = {
    GlyphMetric::leftSideBearing, GlyphMetric::rightSideBearing, GlyphMetric::advanceWidth,
    GlyphMetric::verticalOffset, GlyphMetric::scale};

/// Its name in documents and tables ("leftSideBearing").
const char* name(GlyphMetric metric);

/// A metric and what it is set to.
struct MetricValue {
  GlyphMetric metric;
  double value;

  friend bool operator==(const MetricValue&, const MetricValue&) = default;
};

/// All that the metrics of a glyph determine. Lengths are font units, y upwards, baseline at 0. The
/// defaults are those of a drawing that was read but not placed yet.
struct GlyphPlacement {
  double advanceWidth = 600;
  /// A running value: every change of it moves the outline. It may differ from the outline's edge.
  double leftSideBearing = 50;
  /// From the right edge of the bounding box to the advance width.
  double rightSideBearing = 50;
  double verticalOffset = 0;
  /// Size of the outline relative to its first placement.
  double scale = 1;
  /// Box around every point of fontPath, control points included.
  Rect boundingBox;
  /// The outline that is drawn, previewed and exported.
  Outline fontPath;

  double metric(GlyphMetric metric) const;

  friend bool operator==(const GlyphPlacement&, const GlyphPlacement&) = default;
};

/// The values of a glyph.
struct GlyphRecord : GlyphPlacement {
  Uuid id;
  /// The character that the glyph maps to; nothing for a glyph outside every text (".notdef").
  std::optional<Utf8> unicode;
  Utf8 name;
  /// Path data of the drawing, and its box in SVG user units, y downwards. Editing keeps both.
  SharedText svgPath;
  Rect viewBox;

  friend bool operator==(const GlyphRecord&, const GlyphRecord&) = default;
};

/// A glyph of a project. Its metrics change only through the setters, which keep outline, box and
/// metrics in step: after each of them rightSideBearing = advanceWidth - boundingBox.maxX to
/// within 0.001.
class Glyph {
public:
  /// A glyph with exactly these values; no rule is run.
  explicit Glyph(GlyphRecord record = {}) : record_(std::move(record)) {}

  const GlyphRecord& record() const { return record_; }
  const Uuid& id() const { return record_.id; }
  const std::optional<Utf8>& unicode() const { return record_.unicode; }
  /// The character, or empty text when there is none.
  std::string_view character() const {
    return record_.unicode ? std::string_view(*record_.unicode) : std::string_view();
  }
  const Utf8& name() const { return record_.name; }
  double advanceWidth() const { return record_.advanceWidth; }
  double leftSideBearing() const { return record_.leftSideBearing; }
  double rightSideBearing() const { return record_.rightSideBearing; }
  double verticalOffset() const { return record_.verticalOffset; }
  double scale() const { return record_.scale; }
  double metric(GlyphMetric metric) const { return record_.metric(metric); }
  const Rect& boundingBox() const { return record_.boundingBox; }
  const Outline& fontPath() const { return record_.fontPath; }
  /// False when its drawing had no readable point: its box is infinite then, and no document can
  /// hold it.
  bool hasBox() const {
    const Rect& box = record_.boundingBox;
    return isFinite(Point{box.x, box.y}) && isFinite(Point{box.maxX(), box.maxY()});
  }
  const GlyphPlacement& placement() const { return record_; }

  void setUnicode(std::optional<Utf8> unicode) { record_.unicode = std::move(unicode); }

  /// Gives the glyph an outline and its box as they are; metrics stay.
  void placeOutline(Outline outline, Rect boundingBox);
  /// Puts it back where it was when this was its placement. No rule is run.
  void restore(const GlyphPlacement& placement) {
    static_cast<GlyphPlacement&>(record_) = placement;
  }

  /// Moves the outline sideways by the change; the right side bearing gives way.
  void setLeftSideBearing(double value);
  /// The advance width follows.
  void setRightSideBearing(double value);
  /// The right side bearing follows.
  void setAdvanceWidth(double value);
  /// Moves the outline up by the change.
  void setVerticalOffset(double value);
  /// Resizes the outline by new / old, unless that is 1 to within 0.001 or there is no such ratio,
  /// because a document says that the scale was 0.
  void setScale(double value);
  void setMetric(GlyphMetric metric, double value);

  /// Shifts the outline and its box. A sideways shift keeps the advance width.
  void offsetOutline(double dx, double dy);
  /// Resizes about the left edge of the box and the baseline. Left edge and right side bearing
  /// stay, the advance width follows.
  void rescaleOutline(double ratio);
  /// Lets the advance width follow the right side bearing where they disagree.
  void syncAdvanceWidth();

  friend bool operator==(const Glyph&, const Glyph&) = default;

private:
  GlyphRecord record_;
};

} // namespace quillery
